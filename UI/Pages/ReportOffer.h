// SPDX-License-Identifier: MIT
// The report that a message offers: asks for its file, writes it, says how that went.
//
// Owns:    nothing; the controller owns the questions.
// Threads: the interface's own; the report is made beside it, while events are handled.
#pragma once
#include "UI/Widgets/Alerts.h"
#include "UI/Widgets/FileQuestions.h"

#include <functional>
#include <optional>
#include <string>

class ReportOffer {
public:
    // The text of the report about a printer: its address or port string, empty without one.
    using Compose = std::function<std::string(const std::string& printer)>;

    // Without questions or text there is no offer.
    ReportOffer(FileQuestions* files, Compose compose);

    [[nodiscard]] Alert withOffer(Alert message) const; // on a message with details only
    // Only where there is an offer. Returns how that went, for the user; no value if no file was
    // chosen.
    [[nodiscard]] std::optional<Alert> save(const std::string& printer) const;

private:
    FileQuestions* m_files;
    Compose m_compose;
};
