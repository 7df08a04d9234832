// SPDX-License-Identifier: MIT
#include "Tools/vympack/CheckCommand.h"

#include "Tools/vympack/PackageCheck.h"
#include "Tools/vympack/Report.h"

#include <filesystem>

namespace vympack {

namespace {

// False with a complaint if the file or folder cannot be read.
bool findDefects(const std::string& path, Defects& defects, Streams streams)
{
    std::error_code error;
    if (!std::filesystem::is_directory(path, error)) {
        InputFile file;
        if (!openInput(path, file, streams))
            return false;
        checkFile(file, path, defects);
        return true;
    }
    std::string reason;
    if (checkFolder(path, defects, reason))
        return true;
    complain(streams, path, reason);
    return false;
}

} // namespace

int checkPackage(const CheckOrder& order, Streams streams)
{
    Defects defects;
    if (!findDefects(order.path, defects, streams))
        return kExitNoInput;
    const bool fails = defects.errors() + (order.strict ? defects.warnings() : 0) > 0;
    const int code = fails ? kExitDefects : kExitDone;
    if (order.json)
        writeDefectsJson(streams.results, order.path, defects, code);
    else
        writeDefects(streams.results, order.path, defects);
    return code;
}

} // namespace vympack
