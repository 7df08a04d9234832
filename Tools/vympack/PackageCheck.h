// All checks of a package, on a container that exists and on the inputs of one that does not yet.
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

} // namespace vympack
