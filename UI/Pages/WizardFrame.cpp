// SPDX-License-Identifier: MIT
#include "UI/Pages/WizardFrame.h"

#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/LetterWidth.h"
#include "UI/Widgets/ScreenRoom.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <cassert>

namespace {

// The window's initial size, in letters and lines of the user's font.
constexpr int kWizardLettersWide = 108;
constexpr int kWizardLinesHigh = 35;

} // namespace

WizardFrame::WizardFrame(Form& form)
{
    form.find(_mainwindow, "_mainwindow");
    form.find(_mainTabView, "_mainTabView");
    form.find(_buttonTabView, "_buttonTabView");
    form.find(_stepBar, "_stepBar");
}

void WizardFrame::connectControls()
{
    assert(_mainTabView != nullptr);
    // The toolkit scrolls to a control only if the Tab key gives it the focus.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        auto* page = qobject_cast<QScrollArea*>(_mainTabView->currentWidget());
        if (page != nullptr && page->isAncestorOf(now))
            page->ensureWidgetVisible(now);
    });
}

void WizardFrame::setTexts()
{
    _mainwindow->setWindowTitle(words::text(textkey::kApplication));
    _stepBar->setSteps({words::text(textkey::kStepOpening), words::text(textkey::kStepPreparation),
                        words::text(textkey::kStepDevice), words::text(textkey::kStepConfirmation),
                        words::text(textkey::kStepUpdate)});
}

void WizardFrame::open()
{
    const QFontMetrics metrics(QApplication::font());
    // The same room below as for the title bar above centres the window.
    const auto room = screenRoom(*_mainwindow);
    const auto most = room - (_mainwindow->screen()->availableSize() - room);
    const QSize wanted(letterWidth(metrics) * kWizardLettersWide,
                       metrics.height() * kWizardLinesHigh);
    _mainwindow->resize(wanted.expandedTo(_mainwindow->minimumSizeHint()).boundedTo(most));
    centreOnScreen(*_mainwindow);
    _mainwindow->show();
    _mainwindow->raise();
    _mainwindow->activateWindow();
}

void WizardFrame::showPage(Page& page, int step)
{
    assert(page.content() != nullptr && step >= 0);
    if (m_page != nullptr)
        m_page->leave();
    m_page = &page;
    page.enter();
    if (auto* area = qobject_cast<QScrollArea*>(page.content()))
        area->setWidgetResizable(true); // not in the form: hidden pages need no layout
    _mainTabView->setCurrentWidget(page.content());
    _buttonTabView->setCurrentWidget(page.buttonRow());
    _stepBar->setCurrentStep(step);
    page.forwardButton()->setDefault(true);
    page.forwardButton()->setFocus();
    page.takeFocus();
}

#include "moc_WizardFrame.cpp"
