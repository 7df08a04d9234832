// SPDX-License-Identifier: MIT
#include "UI/Pages/ReportOffer.h"

#include "UI/Pages/Words.h"
#include "UI/Support/WholeFile.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Aside.h"

#include <cassert>

namespace {

constexpr const char* kReportName = "vymkit-report.txt";
constexpr std::size_t kShownFile = 4096; // whole: the user looks for it

} // namespace

ReportOffer::ReportOffer(FileQuestions* files, Compose compose)
    : m_files(files), m_compose(std::move(compose))
{
}

Alert ReportOffer::withOffer(Alert message) const
{
    if (m_files != nullptr && m_compose && !message.details.empty())
        message.extraButton = words::plain(textkey::kReportSave);
    return message;
}

std::optional<Alert> ReportOffer::save(const std::string& printer) const
{
    assert(m_files != nullptr && m_compose);
    const auto file = m_files->fileToSave(words::plain(textkey::kReportSave), kReportName);
    if (file.empty())
        return std::nullopt;
    std::string problem;
    doAside([&] { problem = writeWholeFile(file, m_compose(printer)); });
    Alert told;
    told.defaultButton = words::plain(textkey::kOk);
    told.title = words::plain(problem.empty() ? textkey::kReportSaved : textkey::kReportNotSaved);
    told.style = problem.empty() ? AlertStyle::informational : AlertStyle::critical;
    told.message = plainText(file, kShownFile) + (problem.empty() ? "" : "\n" + problem);
    if (problem.empty())
        told.remarks = words::plain(textkey::kReportMasked);
    return told;
}
