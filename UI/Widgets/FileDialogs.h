// SPDX-License-Identifier: MIT
// Questions for a file as the desktop's own dialogs.
//
// Owns:    nothing; a dialog lives until it is answered.
// Threads: the interface's own.
#pragma once
#include "UI/Widgets/FileQuestions.h"

class FileDialogs : public FileQuestions {
public:
    std::string fileToOpen(const std::string& title,
                           const std::vector<std::string>& filters) override;
    std::string fileToSave(const std::string& title, const std::string& suggested) override;
};
