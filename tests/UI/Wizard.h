// SPDX-License-Identifier: MIT
// The wizard for a test: a package, scripted printers, queued answers, and the controls by their
// names.
#pragma once
#include "UI/MainWindowController.h"
#include "tests/UI/Waits.h"
#include "tests/support/Package.h"
#include "tests/support/QueuedAlerts.h"

#include <QTranslator>
#include <condition_variable>
#include <mutex>
#include <stdexcept>

class Wizard {
public:
    Wizard();
    ~Wizard();

    // Sets the package before it is opened; the default suits every system.
    Wizard& description(std::initializer_list<std::string_view> rows);
    Wizard& noPackage();
    // Every search from now on finds these printers: name and port string.
    Wizard& printers(std::initializer_list<std::pair<const char*, const char*>> rows);
    Wizard& driverOnly();
    Wizard& appearing(); // the printers are reported one by one, before a search is held
    Wizard& open();

    // A search waits at this printer until it is released or cancelled.
    void holdSearch(const char* printer);
    void letSearchGo();
    [[nodiscard]] int searches() const { return m_searches; }
    [[nodiscard]] int searchesAtOnce() const { return m_mostAtOnce; }

    template <typename Control = QWidget> [[nodiscard]] Control& find(const char* name) const
    {
        for (const auto* window : QApplication::topLevelWidgets()) {
            auto* control = window->findChild<Control*>(QLatin1String(name));
            if (control != nullptr)
                return *control;
        }
        throw std::runtime_error(std::string("no control ") + name);
    }
    [[nodiscard]] QWidget& window(const char* name = "_mainwindow") const;
    [[nodiscard]] QString text(const char* label) const { return find<QLabel>(label).text(); }
    [[nodiscard]] QTableView& table() const;
    [[nodiscard]] int row() const { return selectedRowOf(table()); }
    [[nodiscard]] QString page() const; // checks that both views show the same one
    [[nodiscard]] QString focus() const; // the control's name, or "cell 1" of the address
    [[nodiscard]] QStringList tabOrder(const char* from) const; // by the Tab key, back to the start

    void press(const char* button); // with the mouse
    void key(Qt::Key key); // to the control with the focus
    void chooseRow(int row); // with the mouse
    void typeAddress(std::initializer_list<const char*> numbers);
    void waitForPrinters() const;
    // Presses Next until the page with the printers has its list.
    Wizard& toPrinters();

    QueuedAlerts alerts;
    MainWindowSetup setup;
    std::unique_ptr<MainWindowController> controller;
    QString problem;

private:
    TargetPrinters search(bool driverOnly, const std::atomic<bool>& cancel,
                          PrinterSearchObserver& observer);

    Package m_package;
    bool m_hasPackage = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    PrinterList::Records m_printers;
    std::string m_held;
    bool m_isAppearing = false;
    std::atomic<int> m_searches = 0;
    std::atomic<int> m_atOnce = 0;
    std::atomic<int> m_mostAtOnce = 0;
};

constexpr const char* kLanguages[] = {"en", "de", "es", "fr", "ja", "zh_CN"};

// Sets the language of the application's texts while it lives.
class Language {
public:
    explicit Language(const char* name)
    {
        if (!m_translator.load(QStringLiteral(":/translations/vymkit_") + QLatin1String(name)))
            throw std::runtime_error(std::string("no table for ") + name);
        QCoreApplication::installTranslator(&m_translator);
    }

private:
    QTranslator m_translator; // removes itself when destroyed
};

// Checks that every visible text and button has enough room.
void expectNothingCut(const QWidget& window);
