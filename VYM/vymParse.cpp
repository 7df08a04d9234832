// SPDX-License-Identifier: MIT
#include "VYM/vymParse.h"

#include "VYM/DescriptionText.h"
#include "VYM/vymUtil.h"

#include <cstring>
#include <memory>

vymParse g_VymInfo;

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

// Returns the size of an open file and rewinds it; -1 if it has no size.
long sizeOf(std::FILE* file)
{
    if (std::fseek(file, 0, SEEK_END) != 0)
        return -1;
    const long size = std::ftell(file);
    return std::fseek(file, 0, SEEK_SET) == 0 ? size : -1;
}

} // namespace

bool vymParse::loadData(const char* data, unsigned long length, loadFile_type type)
{
    const HoldLock hold(m_lock);
    if (data == nullptr)
        return false;
    m_text.assign(data, length);
    m_index.forget();
    m_type = type;
    return true;
}

bool vymParse::loadtargetFile(const char* path, loadFile_type type)
{
    std::FILE* opened = nullptr;
    if (!isPlainFile(path) || fopen_s(&opened, path, "rb") != 0)
        return false;
    const OpenFile file(opened);
    const long size = sizeOf(file.get());
    if (size < 0)
        return false;
    const auto length = static_cast<unsigned long>(size);
    const std::unique_ptr<void, decltype(&FreeMem)> buffer(AllocMem(length + 2), &FreeMem);
    if (buffer == nullptr)
        return false;
    if (std::fread(buffer.get(), 1, length, file.get()) < length && std::ferror(file.get()) != 0)
        return false;
    return loadData(static_cast<const char*>(buffer.get()), length, type);
}

int vymParse::getFileFormat(const char* bytes, unsigned long& bomLength) const
{
    bomLength = 0;
    if (bytes == nullptr || (bytes[0] != '\xFF' && bytes[0] != '\xEF'))
        return 0;
    if (bytes[1] == '\xFE') {
        bomLength = 2;
        return 2;
    }
    if (bytes[1] == '\xBB' && bytes[2] == '\xBF') {
        bomLength = 3;
        return 1;
    }
    return 0;
}

int vymParse::getArraySize(const std::vector<std::string>& values)
{
    return static_cast<int>(values.size());
}

int vymParse::getArraySize(const std::vector<int>& values)
{
    return static_cast<int>(values.size());
}

std::string_view vymParse::row(const char* key, unsigned index) const
{
    return key != nullptr ? m_index.find(m_text, key, index) : std::string_view();
}

std::string vymParse::getTargetKeyRowData(const char* key, unsigned index) const
{
    return std::string(row(key, index));
}

std::string vymParse::getNextRowData(const std::string& row) const
{
    return std::string(description::afterToken(row));
}

unsigned vymParse::getSeparatePoint(const std::string& text) const
{
    return static_cast<unsigned>(description::tokenEnd(text));
}

bool vymParse::isSeparator(const std::string& text) const
{
    return !text.empty() && (text.front() == ' ' || text.front() == '\t');
}

int vymParse::findString(const std::string& text, const char* needle, unsigned long from) const
{
    if (needle == nullptr)
        return -1;
    const auto found = description::findNoCase(text, needle, from);
    return found != std::string_view::npos ? static_cast<int>(found) : -1;
}

int vymParse::compareString(const std::string& text, const char* literal) const
{
    return literal != nullptr ? ascii::compareNoCase(text.c_str(), literal) : -1;
}

bool vymParse::getStringValue(const char* key, std::string& value, unsigned index) const
{
    const auto found = row(key, index);
    if (found.empty())
        return false;
    const auto valuePart = description::afterToken(found);
    value = description::withoutQuotes(valuePart.substr(0, description::tokenEnd(valuePart)));
    return !valuePart.empty();
}

bool vymParse::getStringArrayValue(const char* key, std::vector<std::string>& values,
                                   unsigned index) const
{
    const auto found = row(key, index);
    if (found.empty())
        return false;
    description::Tokens tokens(description::afterToken(found));
    std::string_view token;
    while (tokens.next(token))
        values.push_back(description::withoutQuotes(token));
    return true;
}

bool vymParse::getIntValue(const char* key, int& value, unsigned index, unsigned base) const
{
    const auto found = row(key, index);
    if (found.empty())
        return false;
    const auto valuePart = description::afterToken(found);
    value = valuePart.empty() ? -1 : description::leadingNumber(valuePart, base);
    return true;
}

bool vymParse::getYesNoValue(const char* key, yesno_type& value, unsigned index) const
{
    const auto found = row(key, index);
    if (found.empty())
        return false;
    const auto from = description::orEmpty(key).size();
    const auto holds = [&](const char* word) {
        return description::findNoCase(found, word, from) != std::string_view::npos;
    };
    if (holds("YES"))
        value = yesno_yes;
    else if (holds("NO"))
        value = yesno_no;
    else
        value = holds("BOTH") ? yesno_both : yesno_none;
    return true;
}

std::string vymParse::removeDoubleQuot(const std::string& text) const
{
    return description::withoutQuotes(text);
}

std::string vymParse::removeWhiteSpace(const std::string& text) const
{
    // Tabs have always been kept, and packages in the field rely on that.
    std::string plain(text);
    std::erase(plain, ' ');
    return plain;
}

std::string vymParse::getNumberBeforeString(const std::string& text) const
{
    return std::string(description::beforeDigits(text));
}

bool vymParse::getExtVersion(const std::string& text, int& major, int& minor) const
{
    const std::string_view view = text;
    const auto point = view.find('.');
    if (point == std::string_view::npos || point == 0 || point + 1 == view.size())
        return false;
    major = description::leadingNumber(view.substr(0, point), 10);
    minor = description::leadingNumber(view.substr(point + 1), 10);
    return true;
}
