// SPDX-License-Identifier: MIT
// Asks the user for a file: the seam between the code that needs its name and the code that shows
// the question.
//
// Owns:    nothing.
// Threads: the interface's own.
#pragma once
#include <string>
#include <vector>

class FileQuestions {
public:
    FileQuestions() = default;
    virtual ~FileQuestions() = default;
    FileQuestions(const FileQuestions&) = delete;
    FileQuestions& operator=(const FileQuestions&) = delete;

    // Each returns a file with its folder; empty if the user chose none.
    // filters: the names of usual files, such as "*.vymbind"; one row for each.
    virtual std::string fileToOpen(const std::string& title,
                                   const std::vector<std::string>& filters) = 0;
    virtual std::string fileToSave(const std::string& title, const std::string& suggested) = 0;
};
