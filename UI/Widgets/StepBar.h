// SPDX-License-Identifier: MIT
// Shows the wizard's steps in order: those done, the current one and those ahead. If the names do
// not all fit side by side, only the current one is written out. To a screen reader it is one line
// of text: the current step's number and name.
//
// Owns:      the names of its steps.
// Threads:   the interface's own.
// Invariant: takes no focus and no clicks; only the pages' buttons change the page.
#pragma once
#include <QLabel>
#include <QStringList>

class QPainter;

class StepBar final : public QLabel {
    Q_OBJECT

public:
    explicit StepBar(QWidget* parent = nullptr);

    void setSteps(const QStringList& names);
    void setCurrentStep(int step); // from 0
    [[nodiscard]] int currentStep() const { return m_current; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int disc() const; // diameter
    [[nodiscard]] int gap() const;
    [[nodiscard]] int stepWidth(int step, bool isNamed) const;
    [[nodiscard]] int wholeWidth(bool areAllNamed) const;
    void paintStep(QPainter& painter, int step, int left, bool isNamed) const;
    void paintDisc(QPainter& painter, int step, const QRect& place) const;
    // A place, measured from the side where reading begins.
    [[nodiscard]] QRect visual(const QRect& place) const;
    void describe();

    QStringList m_names;
    int m_current = 0;
};
