// SPDX-License-Identifier: MIT
// A small round sign for work of unknown length. To a screen reader it is a busy progress bar.
//
// Owns:    its timer, which runs while the sign is shown and started.
// Threads: the interface's own.
#pragma once
#include <QBasicTimer>
#include <QProgressBar>

class BusySign final : public QProgressBar {
    Q_OBJECT

public:
    explicit BusySign(QWidget* parent = nullptr);

    void startAnimation();
    void stopAnimation();
    [[nodiscard]] bool isAnimated() const { return m_isStarted; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QBasicTimer m_timer;
    bool m_isStarted = false;
    int m_step = 0;
};
