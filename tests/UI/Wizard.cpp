// SPDX-License-Identifier: MIT
#include "tests/UI/Wizard.h"

#include "UI/vymParseController.h"
#include "VYM/vymBindInfo.h"

#include <gtest/gtest.h>

Wizard::Wizard()
{
    setup.formFile = QStringLiteral(VYMKIT_FORM_FILE);
    setup.alerts = &alerts;
    setup.version = "1.2.3";
    setup.findPrinters = [this](bool driverOnly, const std::atomic<bool>& cancel,
                                PrinterSearchObserver& observer) {
        return search(driverOnly, cancel, observer);
    };
}

Wizard::~Wizard()
{
    letSearchGo();
    controller.reset();
    delete vymBindInfo::Instance();
    g_VymInfo.loadData("", 0, load_vyminfo);
}

Wizard& Wizard::description(std::initializer_list<std::string_view> rows)
{
    m_package.file("main.bin", "image").description(rows).open();
    m_hasPackage = true;
    return *this;
}

Wizard& Wizard::noPackage()
{
    Package::openFolder(m_package.folder().path().string());
    m_hasPackage = true;
    return *this;
}

Wizard& Wizard::printers(std::initializer_list<std::pair<const char*, const char*>> rows)
{
    const std::lock_guard lock(m_mutex);
    m_printers.clear();
    for (const auto& [name, uri] : rows)
        m_printers.push_back(PrinterInfo::initWithPMPrinter(
            PrintQueue{name, std::string(name) + "-id", std::nullopt, uri, "Vymprint 200"}));
    return *this;
}

Wizard& Wizard::driverOnly()
{
    setup.isUseDriverOnly = true;
    return *this;
}

Wizard& Wizard::appearing()
{
    m_isAppearing = true;
    return *this;
}

Wizard& Wizard::open()
{
    if (!m_hasPackage)
        description({"MODELNAME \"Vymprint 200\"", "PLATFORMVERSION MACOS=0",
                     "VERSION MAIN=VP010210 main.bin MAIN.BIN COMPATIBLE=VP010100 HEADER=1 "
                     "DISPVER=1.2.10 DISPFIRM=\"Main controller\"",
                     "VERSION ENGINE=VE010105 main.bin ENGINE.BIN COMPATIBLE=VE010100 HEADER=1 "
                     "DISPVER=1.1.5 DISPFIRM=\"Print engine\""});
    controller = MainWindowController::create(setup, problem);
    if (controller == nullptr || controller->hasEnded())
        return *this;
    controller->show();
    if (!becomesActive(window()))
        throw std::runtime_error("the window does not become active");
    return *this;
}

TargetPrinters Wizard::search(bool, const std::atomic<bool>& cancel,
                              PrinterSearchObserver& observer)
{
    ++m_searches;
    m_mostAtOnce = std::max<int>(m_mostAtOnce, ++m_atOnce);
    observer.askingPrintServer();
    std::unique_lock lock(m_mutex);
    for (const auto& printer : m_isAppearing ? m_printers : PrinterList::Records())
        observer.found(printer);
    if (!m_held.empty())
        observer.askingDevice(*PrinterInfo::initWithPrinterName(m_held, "", ""));
    while (!m_held.empty() && !cancel)
        m_changed.wait_for(lock, std::chrono::milliseconds(5));
    TargetPrinters found;
    found.candidates = m_printers;
    --m_atOnce;
    return found;
}

void Wizard::holdSearch(const char* printer)
{
    const std::lock_guard lock(m_mutex);
    m_held = printer;
}

void Wizard::letSearchGo()
{
    holdSearch("");
    m_changed.notify_all();
}

QWidget& Wizard::window(const char* name) const
{
    for (auto* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(name))
            return *window;
    }
    throw std::runtime_error(std::string("no window ") + name);
}

QTableView& Wizard::table() const
{
    return find<QTableView>(setup.isUseDriverOnly ? "_prtListTblView2" : "_prtListTblView");
}

QString Wizard::page() const
{
    const auto pageOf = [this](const char* view) {
        return find<QStackedWidget>(view).currentWidget()->objectName();
    };
    const auto content = pageOf("_mainTabView");
    return content == pageOf("_buttonTabView") ? content : QStringLiteral("two different pages");
}

QString Wizard::focus() const
{
    const auto* widget = QApplication::focusWidget();
    if (widget == nullptr)
        return {};
    const auto& address = find<InputNSMatrixControl>("_IPAddressMatrix");
    for (int column = 0; column < address.numberOfColumns(); ++column) {
        if (address.cellAtColumn(column) == widget)
            return QStringLiteral("cell %1").arg(column + 1);
    }
    return widget->objectName();
}

QStringList Wizard::tabOrder(const char* from) const
{
    find(from).setFocus();
    QStringList order;
    do {
        order << focus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (focus() != order.first() && order.size() < 50);
    return order;
}

void Wizard::press(const char* button)
{
    QTest::mouseClick(&find(button), Qt::LeftButton, {}, QPoint(8, find(button).height() / 2));
}

void Wizard::key(Qt::Key key)
{
    auto* focused = QApplication::focusWidget();
    QTest::keyClick(focused != nullptr ? focused : &window(), key);
}

void Wizard::chooseRow(int row)
{
    const auto place = table().visualRect(table().model()->index(row, 0)).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
}

void Wizard::typeAddress(std::initializer_list<const char*> numbers)
{
    const auto& address = find<InputNSMatrixControl>("_IPAddressMatrix");
    int column = 0;
    for (const auto* number : numbers) {
        auto* cell = address.cellAtColumn(column++);
        cell->setFocus();
        cell->selectAll();
        QTest::keyClicks(cell, QLatin1String(number));
    }
}

void Wizard::waitForPrinters() const
{
    const auto& sign =
        find<BusySign>(setup.isUseDriverOnly ? "_searchAnimation2" : "_searchAnimation");
    if (!comesTrue([&sign] { return !sign.isAnimated(); }))
        throw std::runtime_error("the search does not end");
}

Wizard& Wizard::toPrinters()
{
    press("_openingNextBtn");
    press("_prefNextBtn");
    waitForPrinters();
    return *this;
}

void expectNothingCut(const QWidget& window)
{
    settle();
    for (const auto* label : window.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const auto name = label->objectName().toStdString();
        if (label->hasHeightForWidth()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << name;
        }
        EXPECT_GE(label->width(), label->minimumSizeHint().width()) << name;
    }
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && !button->text().isEmpty()) {
            EXPECT_GE(button->width(), button->sizeHint().width())
                << button->objectName().toStdString();
        }
    }
}
