// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetOptions.h"

#include "CLI/OptionText.h"
#include "UI/Text/PlainText.h"

const char* optionOf(PrinterWord::Kind kind)
{
    if (kind == PrinterWord::Kind::queue)
        return "--printer";
    return kind == PrinterWord::Kind::uri ? "--uri" : "--address";
}

std::string errorOf(const PrinterWord& word)
{
    if (word.kind == PrinterWord::Kind::uri)
        return portStringError(word.text);
    if (word.kind == PrinterWord::Kind::queue || isPrinterAddress(word.text)
        || isHostName(word.text))
        return {};
    return "'" + plainText(word.text)
        + "' is not the address of a printer: give its name, or its IPv4 address as four numbers "
          "from 0 to 255 with points between them, such as 192.0.2.7.";
}
