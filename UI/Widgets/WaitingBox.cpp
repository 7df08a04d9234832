// SPDX-License-Identifier: MIT
#include "UI/Widgets/WaitingBox.h"

#include "UI/Widgets/Aside.h"
#include "UI/Widgets/BusySign.h"
#include "UI/Widgets/ScreenRoom.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <cassert>

void waitFor(const WaitingWords& words, const std::function<void()>& work,
             const std::function<void()>& stop)
{
    assert(work && stop);
    QDialog box;
    box.setModal(true);
    box.setWindowTitle(words.text);
    auto* sign = new BusySign;
    sign->setAccessibleName(words.text);
    auto* text = new QLabel(words.text);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(words.stop, QDialogButtonBox::RejectRole);
    auto* grid = new QGridLayout(&box);
    grid->addWidget(sign, 0, 0);
    grid->addWidget(text, 0, 1);
    grid->addWidget(buttons, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &box, &QDialog::reject);
    QObject::connect(&box, &QDialog::rejected, &box, stop);
    sign->startAnimation();
    box.adjustSize();
    centreOnScreen(box);
    box.show();
    doAside(work);
}
