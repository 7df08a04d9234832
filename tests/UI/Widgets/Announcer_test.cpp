// SPDX-License-Identifier: MIT
// The announcements as a screen reader fetches them. That it hears of them shows on a real
// accessibility bus only: see access_test.py.
#include "UI/Widgets/Announcer.h"

#include <QLabel>
#include <gtest/gtest.h>
#include <optional>

namespace {

QAccessibleInterface* noticeOf(QAccessible::Id id)
{
    return QAccessible::accessibleInterface(id);
}

} // namespace

TEST(Announcer, MakesANotificationOfEachText)
{
    QLabel about;
    Announcer announcer;
    announcer.announce(about, "one");
    announcer.announce(about, "two");
    ASSERT_EQ(announcer.kept().size(), 2U);
    EXPECT_NE(announcer.kept()[0], announcer.kept()[1]);
    const auto* notice = noticeOf(announcer.kept()[0]);
    ASSERT_NE(notice, nullptr);
    EXPECT_EQ(notice->role(), QAccessible::Notification);
    EXPECT_EQ(notice->text(QAccessible::Name), "one");
    EXPECT_EQ(notice->text(QAccessible::Description), QString());
    EXPECT_FALSE(notice->state().invisible);
}

TEST(Announcer, KeepsTheTextsThatCameLastForAReaderThatIsSlow)
{
    QLabel about;
    std::optional<Announcer> announcer(std::in_place);
    announcer->announce(about, "0");
    const auto first = announcer->kept().front();
    for (std::size_t i = 1; i <= Announcer::kKept; ++i)
        announcer->announce(about, QString::number(i));
    const auto kept = announcer->kept();
    ASSERT_EQ(kept.size(), Announcer::kKept);
    EXPECT_EQ(noticeOf(first), nullptr);
    for (std::size_t i = 0; i < kept.size(); ++i) {
        ASSERT_NE(noticeOf(kept[i]), nullptr) << i;
        EXPECT_EQ(noticeOf(kept[i])->text(QAccessible::Name), QString::number(i + 1));
    }
    announcer.reset();
    EXPECT_EQ(noticeOf(kept.back()), nullptr);
}

TEST(Announcer, PutsThemIntoTheWindowButNotAmongItsControls)
{
    QWidget window;
    QLabel about(&window);
    Announcer announcer;
    announcer.announce(about, "one");
    const auto* notice = noticeOf(announcer.kept().front());
    auto* seen = QAccessible::queryAccessibleInterface(&window);
    EXPECT_EQ(notice->parent(), seen);
    EXPECT_EQ(seen->indexOfChild(notice), -1);
    EXPECT_EQ(notice->childCount(), 0);
    EXPECT_EQ(notice->rect(), window.geometry());
}

TEST(Announcer, OutlivesTheWindow)
{
    std::optional<QLabel> about(std::in_place);
    Announcer announcer;
    announcer.announce(*about, "one");
    about.reset();
    const auto* notice = noticeOf(announcer.kept().front());
    ASSERT_NE(notice, nullptr);
    EXPECT_FALSE(notice->isValid());
    EXPECT_EQ(notice->parent(), nullptr);
    EXPECT_TRUE(notice->rect().isEmpty());
}
