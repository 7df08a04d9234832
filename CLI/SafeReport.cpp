// SPDX-License-Identifier: MIT
#include "CLI/SafeReport.h"

#include <exception>

namespace {

template <class Show> void shown(Show show)
{
    try {
        show();
    } catch (const std::exception&) { // the run goes on unseen
    }
}

} // namespace

void SafeReport::waiting(const std::string& stage, double seconds)
{
    shown([&] { m_report.waiting(stage, seconds); });
}

void SafeReport::status(const StatusView& view)
{
    shown([&] { m_report.status(view); });
}

void SafeReport::warn(const std::string& text)
{
    shown([&] { m_report.warn(text); });
}

void SafeReport::quiet(double silence, double seconds)
{
    shown([&] { m_report.quiet(silence, seconds); });
}

void SafeReport::stopping(StopCause cause, double seconds)
{
    shown([&] { m_report.stopping(cause, seconds); });
}

void SafeReport::finish(const Outcome& outcome)
{
    m_report.finish(outcome);
}
