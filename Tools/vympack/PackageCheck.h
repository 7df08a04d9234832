// All checks of a package: of a container that exists, of the inputs of one that does not yet, of a
// description alone, and of a folder.
//
// Threads: none of its own; the files stay the caller's.
#pragma once
#include "Tools/vympack/ContainerWriter.h"
#include "Tools/vympack/Defect.h"

#include <string>
#include <vector>

namespace vympack {

// The path is for the places of the defects.
void checkContainer(const InputFile& file, const std::string& path, Defects& defects);
// Whatever would be a defect of the container that is made of these inputs.
void checkInputs(const std::vector<Input>& inputs, const std::string& path, Defects& defects);
// A description without its images, which are not looked for.
void checkLoneDescription(const InputFile& file, const std::string& path, Defects& defects);
// A package, or a description: a file without a package's end whose name ends in ".txt".
void checkFile(const InputFile& file, const std::string& path, Defects& defects);
// The description in a folder with the images that it names, and the package in it: what is there.
// False with a reason when neither is there, or one of them cannot be read.
bool checkFolder(const std::string& folder, Defects& defects, std::string& reason);

} // namespace vympack
