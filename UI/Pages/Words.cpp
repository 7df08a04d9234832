// SPDX-License-Identifier: MIT
#include "UI/Pages/Words.h"

#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"

#include <QCoreApplication>
#include <cassert>

namespace words {

std::string plain(const char* key)
{
    assert(key != nullptr);
    return QCoreApplication::translate(kTextContext, key).toStdString();
}

std::string filled(const char* key, const std::string& argument)
{
    return formatText(plain(key), argument);
}

QString text(const char* key)
{
    return QString::fromStdString(formatText(plain(key)));
}

QString text(const char* key, const std::string& argument)
{
    return QString::fromStdString(filled(key, argument));
}

QString text(const char* key, std::uint32_t argument)
{
    return QString::fromStdString(formatText(plain(key), argument));
}

} // namespace words
