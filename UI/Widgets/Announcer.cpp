// SPDX-License-Identifier: MIT
#include "UI/Widgets/Announcer.h"

#include <QAccessibleInterface>
#include <QPointer>

namespace {

// Screen readers say the name of a notification as soon as it appears.
class Notice final : public QAccessibleInterface {
public:
    Notice(QWidget& about, QString text) : m_about(&about), m_text(std::move(text)) { }

    [[nodiscard]] bool isValid() const override { return !m_about.isNull(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return m_about.isNull() ? nullptr
                                : QAccessible::queryAccessibleInterface(m_about->window());
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_text : QString();
    }
    void setText(QAccessible::Text, const QString&) override { }
    [[nodiscard]] QRect rect() const override
    {
        return m_about.isNull() ? QRect() : m_about->window()->geometry();
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; } // visible

private:
    QPointer<QWidget> m_about;
    QString m_text;
};

} // namespace

Announcer::~Announcer()
{
    for (const auto id : m_kept)
        QAccessible::deleteAccessibleInterface(id);
}

void Announcer::announce(QWidget& about, const QString& text)
{
    auto* notice = new Notice(about, text); // the toolkit's registry owns it
    m_kept.push_back(QAccessible::registerAccessibleInterface(notice));
    QAccessibleEvent appeared(notice, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&appeared);
    if (m_kept.size() > kKept) {
        QAccessible::deleteAccessibleInterface(m_kept.front());
        m_kept.pop_front();
    }
}
