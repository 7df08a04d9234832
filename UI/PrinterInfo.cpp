// SPDX-License-Identifier: MIT
#include "UI/PrinterInfo.h"

std::shared_ptr<PrinterInfo> PrinterInfo::initWithPMPrinter(const PrintQueue& queue)
{
    auto info = std::make_shared<PrinterInfo>();
    info->m_name = queue.name;
    info->m_identifier = queue.identifier;
    info->m_location = queue.location;
    info->m_uri = queue.deviceUri;
    info->m_model = queue.makeAndModel;
    return info;
}

std::shared_ptr<PrinterInfo> PrinterInfo::initWithPrinterName(const Text& name, const Text& model,
                                                              const Text& address)
{
    auto info = std::make_shared<PrinterInfo>();
    info->m_name = name;
    info->m_model = model;
    info->m_uri = address;
    return info;
}
