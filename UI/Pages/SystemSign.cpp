// SPDX-License-Identifier: MIT
#include "UI/Pages/SystemSign.h"

#include "UI/VYM_Utilities.h"
#include "UI/Widgets/Look.h"

#include <QStyle>

void showSystemSign(QLabel& label, std::uint32_t type)
{
    const auto size = static_cast<unsigned>(
        label.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &label));
    const auto icon = VYM_Utilities::getSystemIcon(type, size);
    const auto own = type == kNoteIcon ? QStringLiteral("note") : QStringLiteral("caut");
    showPicture(label, icon.has_value() ? namedIcon(QString::fromLatin1(icon->name), own) : QIcon(),
                1);
}
