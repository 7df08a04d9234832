// SPDX-License-Identifier: MIT
// All checks of a package: of an existing container, of the inputs of a future one, of a
// description alone, and of a folder.
//
// Threads: none of its own; the caller owns the files.
#pragma once
#include "Tools/vympack/ContainerWriter.h"
#include "Tools/vympack/Defect.h"

#include <string>
#include <vector>

namespace vympack {

// path is for the places of the defects.
void checkContainer(const InputFile& file, const std::string& path, Defects& defects);
// Finds every defect that a container made from these inputs would have.
void checkInputs(const std::vector<Input>& inputs, const std::string& path, Defects& defects);
// A description alone; does not look for its images.
void checkLoneDescription(const InputFile& file, const std::string& path, Defects& defects);
// A package or a description, which is a file named *.txt without a package's trailer.
void checkFile(const InputFile& file, const std::string& path, Defects& defects);
// The description in a folder with its images, and the package in the folder, if they exist. False
// with a reason if both are missing or one cannot be read.
bool checkFolder(const std::string& folder, Defects& defects, std::string& reason);

} // namespace vympack
