#include "UI/Pages/Form.h"

#include <QCoreApplication>
#include <QFile>
#include <QScrollArea>
#include <QUiLoader>

namespace {

template <typename Widget> QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

struct OwnClass {
    const char* name;
    QWidget* (*make)(QWidget* parent);
};
constexpr std::array<OwnClass, 6> kOwnClasses = {{
    {"WizardWindow", &make<WizardWindow>},
    {"BusySign", &make<BusySign>},
    {"StepBar", &make<StepBar>},
    {"ParagraphLabel", &make<ParagraphLabel>},
    {"InputNSMatrixControl", &make<InputNSMatrixControl>},
    {"vymTableView", &make<vymTableView>},
}};

// Without this, a control of our own classes silently becomes one of the toolkit's.
class Loader : public QUiLoader {
public:
    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        for (const auto& own : kOwnClasses) {
            if (className != QLatin1String(own.name))
                continue;
            auto* widget = own.make(parent);
            widget->setObjectName(name);
            return widget;
        }
        return QUiLoader::createWidget(className, parent, name);
    }
};

// The loader would look for, and load, whatever Designer plugins are installed.
class WithoutPlugins {
public:
    WithoutPlugins() { QCoreApplication::setLibraryPaths({}); }
    ~WithoutPlugins() { QCoreApplication::setLibraryPaths(m_paths); }
    WithoutPlugins(const WithoutPlugins&) = delete;
    WithoutPlugins& operator=(const WithoutPlugins&) = delete;

private:
    QStringList m_paths = QCoreApplication::libraryPaths();
};

constexpr std::array kPages = {page::kOpening, page::kPreference, page::kSelectDevice1,
                               page::kSelectDevice2, page::kConfirmation};

} // namespace

// Looks fields up and notes which of them the form lacks.
class Form::Finder {
public:
    explicit Finder(QWidget& form) : m_form(form) { }

    template <typename Control> void operator()(Control*& field, const char* name)
    {
        field = m_form.findChild<Control*>(QLatin1String(name));
        if (field == nullptr)
            m_missing << QLatin1String(name);
    }
    void column(ListColumn& field, ListTable* table, const char* name)
    {
        field = {table, table != nullptr ? table->columnOfField(name) : -1};
        if (field.column < 0)
            m_missing << QLatin1String(name);
    }
    void pages(const QStackedWidget* view)
    {
        for (const auto* identifier : kPages) {
            if (view != nullptr && pageOf(*view, identifier) == nullptr)
                m_missing << view->objectName() + u'/' + QLatin1String(identifier);
        }
    }
    [[nodiscard]] const QStringList& missing() const { return m_missing; }

private:
    QWidget& m_form;
    QStringList m_missing;
};

Form::~Form() = default;

QWidget* Form::pageOf(const QStackedWidget& view, const char* identifier)
{
    for (int i = 0; i < view.count(); ++i) {
        if (view.widget(i)->objectName() == QLatin1String(identifier))
            return view.widget(i);
    }
    return nullptr;
}

QString Form::loadForm(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    QString error;
    {
        const WithoutPlugins withoutPlugins;
        Loader loader;
        m_form.reset(loader.load(&file));
        error = loader.errorString();
    }
    if (m_form == nullptr)
        return error;
    Finder find(*m_form);
    findWindows(find);
    findOpeningPage(find);
    findPreferencePage(find);
    findSelectDevice1(find);
    findSelectDevice2(find);
    findConfirmationScreen(find);
    findUpdateWindow(find);
    if (!find.missing().isEmpty())
        return QStringLiteral("these controls are missing: ")
            + find.missing().join(QStringLiteral(", "));
    for (auto* window : {_mainwindow, _updateWindow})
        window->setParent(nullptr, Qt::Window);
    m_wizardOwner.reset(_mainwindow);
    m_updateOwner.reset(_updateWindow);
    return {};
}

void Form::findWindows(Finder& find)
{
    find(_mainwindow, "_mainwindow");
    find(_mainTabView, "_mainTabView");
    find(_buttonTabView, "_buttonTabView");
    find.pages(_mainTabView);
    find.pages(_buttonTabView);
    find(_horizontalLine, "_horizontalLine");
    find(_stepBar, "_stepBar");
}

void Form::findOpeningPage(Finder& find)
{
    find(_openingImgView, "_openingImgView");
    find(_AppCommentTxtField, "_AppCommentTxtField");
    find(_targetDeviceTitle, "_targetDeviceTitle");
    find(_targetDeviceTxt, "_targetDeviceTxt");
    find(_firmInfoTxt, "_firmInfoTxt");
    find(_firmInfoScrView, "_firmInfoScrView");
    find(_firmInfoTblView, "_firmInfoTblView");
    if (_firmInfoTblView != nullptr)
        m_firmwareTable = new ListTable(*_firmInfoTblView);
    find.column(_firmList_type_col, m_firmwareTable, "_firmList_type_col");
    find.column(_firmList_version_col, m_firmwareTable, "_firmList_version_col");
    find(_openingNextBtn, "_openingNextBtn");
    find(_openingCancelBtn, "_openingCancelBtn");
    find(_openingVersionTxt, "_openingVersionTxt");
}

void Form::findPreferencePage(Finder& find)
{
    find(_updatePrepTitleTxt, "_updatePrepTitleTxt");
    find(_updatePrepVerificationTxt, "_updatePrepVerificationTxt");
    find(_updatePrepItemsTxt, "_updatePrepItemsTxt");
    find(_updatePrepModeTxt, "_updatePrepModeTxt");
    find(_updateInfoImgView, "_updateInfoImgView");
    find(_prefBackBtn, "_prefBackBtn");
    find(_prefNextBtn, "_prefNextBtn");
    find(_prefCancelBtn, "_prefCancelBtn");
}

void Form::findSelectDevice1(Finder& find)
{
    find(_selectDeviceTitle, "_selectDeviceTitle");
    find(_selectDeviceCmt, "_selectDeviceCmt");
    find(_assignPrtNameBtnCell, "_assignPrtNameBtnCell");
    find(_assignIPAddressBtnCell, "_assignIPAddressBtnCell");
    find(_prtListScrView, "_prtListScrView");
    find(_prtListTblView, "_prtListTblView");
    if (_prtListTblView != nullptr)
        m_printerTable = new ListTable(*_prtListTblView);
    find.column(_printerList_name_col, m_printerTable, "_printerList_name_col");
    find.column(_printerList_port_col, m_printerTable, "_printerList_port_col");
    find(_searchAnimation, "_searchAnimation");
    find(_searchTxt, "_searchTxt");
    find(_IPAddressMatrix, "_IPAddressMatrix");
    find(_selDev1BackBtn, "_selDev1BackBtn");
    find(_selDev1NextBtn, "_selDev1NextBtn");
    find(_selDev1CancelBtn, "_selDev1CancelBtn");
}

void Form::findSelectDevice2(Finder& find)
{
    find(_selectDeviceTitle2, "_selectDeviceTitle2");
    find(_selectDeviceCmt2, "_selectDeviceCmt2");
    find(_assignPrtNameTxt2, "_assignPrtNameTxt2");
    find(_prtListScrView2, "_prtListScrView2");
    find(_prtListTblView2, "_prtListTblView2");
    if (_prtListTblView2 != nullptr)
        m_printerTable2 = new ListTable(*_prtListTblView2);
    find.column(_printerList_name_col2, m_printerTable2, "_printerList_name_col2");
    find.column(_printerList_port_col2, m_printerTable2, "_printerList_port_col2");
    find(_searchAnimation2, "_searchAnimation2");
    find(_searchTxt2, "_searchTxt2");
    find(_selDev2BackBtn, "_selDev2BackBtn");
    find(_selDev2NextBtn, "_selDev2NextBtn");
    find(_selDev2CancelBtn, "_selDev2CancelBtn");
}

void Form::findConfirmationScreen(Finder& find)
{
    find(_updateVerificationTitle, "_updateVerificationTitle");
    find(_updateVerificationTxt, "_updateVerificationTxt");
    find(_targetDevNameTitle, "_targetDevNameTitle");
    find(_targetDevNameTxt, "_targetDevNameTxt");
    find(_portNameTitle, "_portNameTitle");
    find(_portNameTxt, "_portNameTxt");
    find(_targetImgView, "_targetImgView");
    find(_startUpdateCmtTxt, "_startUpdateCmtTxt");
    find(_prepBackBtn, "_prepBackBtn");
    find(_prepStartBtn, "_prepStartBtn");
    find(_prepCancelBtn, "_prepCancelBtn");
}

void Form::findUpdateWindow(Finder& find)
{
    find(_updateWindow, "_updateWindow");
    find(_progressAnimation, "_progressAnimation");
    find(_updateWdwWarningImgView, "_updateWdwWarningImgView");
    find(_updateCmtTxt, "_updateCmtTxt");
    find(_attentionCmtTxt, "_attentionCmtTxt");
    find(_progressCmtTxt, "_progressCmtTxt");
    find(_updatePrg, "_updatePrg");
    find(_closeRefusedTxt, "_closeRefusedTxt");
}
