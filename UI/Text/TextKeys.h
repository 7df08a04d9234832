// SPDX-License-Identifier: MIT
// Every key of the string tables in Resources/, with its name in code. A test fails if a key here
// has no text in a table, if a table has a key that is not here, or if code does not use a key. The
// keys have the spelling of the tables, even if irregular.
//
// Formats: (number) or (text) after a key is the argument of formatText for its text, which has one
//          directive, %u or %@. Texts of other keys have no directive.
// Owns:    nothing.
#pragma once

// The context of all keys in the string tables.
constexpr const char* kTextContext = "Localizable";

namespace textkey {

// The application and its buttons.
constexpr const char* kApplication = "Morix Vymkit"; // both windows' title
constexpr const char* kNext = "Next";
constexpr const char* kBack = "Back";
constexpr const char* kCancel = "Cancel";
constexpr const char* kStart = "Start";
constexpr const char* kOk = "OK";
constexpr const char* kYes = "YES";
constexpr const char* kNo = "NO";

// Opening page.
constexpr const char* kStartDescription = "Start_Description";
constexpr const char* kStartDevNameTitle = "Start_DevNameTitle";
constexpr const char* kStartFirmInfoTitle = "Start_FirmInfoTitle";
constexpr const char* kStartListTypeTitle = "Start_ListTypeTitle";
constexpr const char* kStartListVerTitle = "Start_ListVerTitle";
constexpr const char* kStartSignedWith = "Start_SignedWith"; // (text) the key, and what it signed
constexpr const char* kStartNoPackageTitle = "Start_NoPackageTitle"; // instead of a package
constexpr const char* kStartNoPackage = "Start_NoPackage"; // says what a package is
constexpr const char* kStartChoosePackage = "Start_ChoosePackage"; // a button
constexpr const char* kStartVersionTxt = "Start_VersionTxt"; // (text) the program's version

// Preparation page.
constexpr const char* kPreferenceDescription = "Preference_Description";
constexpr const char* kPreferenceCheckPointTitle = "Preference_CheckPointTitle";
constexpr const char* kPreferenceCheckPoint = "Preference_CheckPoint";
constexpr const char* kPreferenceDownLoadMode = "Preference_DownLoadMode";

// Device pages.
constexpr const char* kDeviceDescription = "Device_Description";
constexpr const char* kDeviceComment = "Device_Comment";
constexpr const char* kDeviceComment2 = "Device_Comment2";
constexpr const char* kDeviceSpecifyPrinterName = "Device_SpecifyPrinteName";
constexpr const char* kDeviceSpecifyIPAddress = "Device_SpecifyIPAddress";
constexpr const char* kDeviceListPrinterName = "Device_ListPrinterName";
constexpr const char* kDeviceListPortName = "Device_ListPortName";
constexpr const char* kDeviceAlertInputAddressTitle = "Device_AlertInputAddressTitle";
constexpr const char* kDeviceAlertInputAddressMes = "Device_AlertInputAddressMes";
constexpr const char* kUsbPrinter = "USB Printer"; // the name of a printer without a queue
constexpr const char* kDeviceAddressName = "Device_AddressName"; // for screen readers
constexpr const char* kDeviceAddressCell = "Device_AddressCell"; // (number) 1 to 4; as above
constexpr const char* kDeviceSearching = "Device_Searching"; // while the list is being made
constexpr const char* kDeviceAsking = "Device_Asking"; // (text) the printer that is being queried
constexpr const char* kDeviceSearchAgain = "Device_SearchAgain"; // a button
constexpr const char* kDeviceFound = "Device_Found"; // (number) of printers; for screen readers
constexpr const char* kDeviceNoPrinters = "Device_NoPrinters"; // the list is empty
constexpr const char* kDeviceNoPrinters2 = "Device_NoPrinters2"; // the same without address entry
// Why a printer is not in the list: sentences about it.
constexpr const char* kDeviceReasons = "Device_Reasons"; // a button
constexpr const char* kDeviceWhyTitle = "Device_WhyTitle";
constexpr const char* kDeviceWhyNothing = "Device_WhyNothing";
constexpr const char* kDeviceWhyNetwork = "Device_WhyNetwork";
constexpr const char* kDeviceWhyServer = "Device_WhyServer";
constexpr const char* kDeviceWhyNoModel = "Device_WhyNoModel";
constexpr const char* kDeviceWhyOtherDriver = "Device_WhyOtherDriver";
constexpr const char* kDeviceWhyNoAddress = "Device_WhyNoAddress";
constexpr const char* kDeviceWhyDriverAddress = "Device_WhyDriverAddress";
constexpr const char* kDeviceWhyOtherConnection = "Device_WhyOtherConnection";
constexpr const char* kDeviceWhyNoSerial = "Device_WhyNoSerial";
constexpr const char* kDeviceWhyDuplicate = "Device_WhyDuplicate"; // (text) the other's name
constexpr const char* kDeviceWhyNotPermitted = "Device_WhyNotPermitted";
constexpr const char* kDeviceWhyNoAnswer = "Device_WhyNoAnswer";
constexpr const char* kDeviceWhyOtherModel = "Device_WhyOtherModel"; // (text) its model
constexpr const char* kDeviceHelpAddress = "Device_HelpAddress";
constexpr const char* kDeviceUseAddress = "Device_UseAddress"; // (text) the address; a button
constexpr const char* kDeviceHelpRule = "Device_HelpRule"; // (text) the file; before the line
constexpr const char* kDeviceCopyLine = "Device_CopyLine"; // a button
constexpr const char* kDeviceClose = "Device_Close"; // a button

// Confirmation page.
constexpr const char* kGuideDescription = "Guide_Description";
constexpr const char* kGuideComment = "Guide_Comment";
constexpr const char* kGuideTargetDeviceTitle = "Guide_TargetDeviceTitle";
constexpr const char* kGuidePortNameTitle = "Guide_PortNameTitle";
constexpr const char* kGuideStartUpdateCmt = "Guide_StartUpdateCmt";

// Questions and the unsupported system.
constexpr const char* kConfirmationNormalTitle = "Confirmation_Normal_Title";
constexpr const char* kConfirmationNormalDescription = "Confirmation_Normal_Description";
constexpr const char* kConfirmationCutOff = "Confirmation_CutOff"; // (text) the time of its start
constexpr const char* kConfirmationVerDownTitle = "Confirmation_VerDown_Title";
constexpr const char* kConfirmationVerDownDescription = "Confirmation_VerDown_Description";
constexpr const char* kCancelMesTitle = "Cancel_MesTitle";
constexpr const char* kCancelMessage = "Cancel_Message";
constexpr const char* kUnSupportOSTitle = "VYM_UnSupportOS_Title";
constexpr const char* kUnSupportOSMes = "VYM_UnSupportOS_Mes";
constexpr const char* kUnSupportOSPackage = "VYM_UnSupportOS_Package"; // (text) the true reason

// Why the package cannot be used.
constexpr const char* kPackageNameTooLong = "Package_NameTooLong";
constexpr const char* kPackageNoFolder = "Package_NoFolder"; // (text) the folder
constexpr const char* kPackageNotInFolder = "Package_NotInFolder"; // (text) the folder
constexpr const char* kPackageNotAFile = "Package_NotAFile"; // (text) its path
constexpr const char* kPackageNotReadable = "Package_NotReadable"; // (text) its path
constexpr const char* kPackageNoMemory = "Package_NoMemory";
constexpr const char* kPackageDamaged = "Package_Damaged"; // (text) its path
constexpr const char* kPackageNoDescription = "Package_NoDescription";
constexpr const char* kPackageLargeDescription = "Package_LargeDescription"; // (number) of MiB
constexpr const char* kPackageLongRow = "Package_LongRow"; // (number) of bytes
constexpr const char* kPackageNoFirmware = "Package_NoFirmware";
constexpr const char* kPackageManyFirmware = "Package_ManyFirmware"; // (number) that are allowed
constexpr const char* kPackageBadPort = "Package_BadPort";
constexpr const char* kPackageReadError = "Package_ReadError";
constexpr const char* kPackageKeysUnreadable = "Package_KeysUnreadable"; // (text) their folder
constexpr const char* kPackageNoSignatureCheck = "Package_NoSignatureCheck";
constexpr const char* kPackageNotSigned = "Package_NotSigned"; // (text) the missing file
constexpr const char* kPackageSignatureUnreadable = "Package_SignatureUnreadable"; // (text) path
constexpr const char* kPackageSignatureOld = "Package_SignatureOld"; // (text) its path
constexpr const char* kPackageSignatureForeign = "Package_SignatureForeign"; // (text) its path
constexpr const char* kPackageKeyUnreadable = "Package_KeyUnreadable"; // (text) its name; in a list
constexpr const char* kPackageTrustedKeys = "Package_TrustedKeys"; // (text) their names; an advice
constexpr const char* kPackageGetAgain = "Package_GetAgain"; // an advice

// The report that a message offers.
constexpr const char* kReportSave = "Report_Save"; // a button
constexpr const char* kReportSaved = "Report_Saved"; // a title
constexpr const char* kReportNotSaved = "Report_NotSaved"; // a title
constexpr const char* kReportMasked = "Report_Masked"; // below the name of the file

// The run.
constexpr const char* kUpdateDescription = "Update_Description";
constexpr const char* kUpdatePrecaution = "Update_Precaution";
constexpr const char* kUpdateCloseRefused = "Update_CloseRefused"; // on closing the window
constexpr const char* kUpdateQuiet = "Update_Quiet"; // (text) the time of the last change
constexpr const char* kUpdateProgressName = "Update_ProgressName"; // for screen readers
constexpr const char* kStateConnection = "State_Connection";
constexpr const char* kStateCheckVersion = "State_CheckVersion";
constexpr const char* kStateCheckVersionPlural = "State_CheckVersion_Plural"; // (number) firmware
constexpr const char* kStatePrepUpdate = "State_PrepUpdate";
constexpr const char* kStatePrepUpdatePlural = "State_PrepUpdate_Plural"; // (number) firmware
constexpr const char* kStateWriteUpdate = "State_WriteUpdate";
constexpr const char* kStateWriteUpdatePlural = "State_WriteUpdate_Plural"; // (number) firmware
constexpr const char* kStateUpdated = "State_Updated";

// Ends of a run: verdict, reason, and the next step if no firmware was sent.
constexpr const char* kNormalEndTitle = "NormalEndTitle";
constexpr const char* kNormalEndAutoMes = "NormalEnd_AutoMes";
constexpr const char* kNormalEndManualMes = "NormalEnd_ManualMes";
constexpr const char* kNoUpdateEndTitle = "NoUpdateEndTitle";
constexpr const char* kNoUpdateEndAutoMes = "NoUpdateEnd_AutoMes";
constexpr const char* kNoUpdateEndManualMes = "NoUpdateEnd_ManualMes";
constexpr const char* kErrorDeviceErrorTitle = "Error_DeviceErrorTitle";
constexpr const char* kErrorDeviceErrorMes = "Error_DeviceErrorMes";
constexpr const char* kErrorDeviceErrorNext = "Error_DeviceErrorNext";
constexpr const char* kErrorConnectErrorTitle = "Error_ConnectErrorTitle";
constexpr const char* kErrorConnectErrorMes = "Error_ConnectErrorMes";
constexpr const char* kErrorConnectErrorNext = "Error_ConnectErrorNext";
constexpr const char* kErrorDeviceBusyTitle = "Error_DeviceBusyTitle";
constexpr const char* kErrorDeviceBusyMes = "Error_DeviceBusyMes";
constexpr const char* kErrorDeviceBusyNext = "Error_DeviceBusyNext";
// Instead of the two above: another update of the printer is running on this computer.
constexpr const char* kErrorUpdateRunningMes = "Error_UpdateRunningMes";
constexpr const char* kErrorUpdateRunningNext = "Error_UpdateRunningNext";
constexpr const char* kErrorFaxTitle = "Error_FaxTitle";
constexpr const char* kErrorFaxMes = "Error_FaxMes";
constexpr const char* kErrorFaxNext = "Error_FaxNext";
constexpr const char* kErrorPoweredOffTitle = "Error_PoweredOffTitle";
constexpr const char* kErrorPoweredOffMes = "Error_PoweredOffMes";
constexpr const char* kErrorPoweredOffNext = "Error_PoweredOffNext";
constexpr const char* kErrorModelMismatchTitle = "Error_ModelMismatchTitle";
constexpr const char* kErrorModelMismatchMes = "Error_ModelMismatchMes";
constexpr const char* kErrorModelMismatchNext = "Error_ModelMismatchNext";
constexpr const char* kErrorFirmReadTitle = "Error_FirmReadTitle";
constexpr const char* kErrorFirmReadMes = "Error_FirmReadMes";
constexpr const char* kErrorFirmReadNext = "Error_FirmReadNext";
constexpr const char* kErrorSystemTitle = "Error_SystemTitle";
constexpr const char* kErrorSystemMes = "Error_SystemMes";
constexpr const char* kErrorSystemNext = "Error_SystemNext";
constexpr const char* kErrorCompatibleTitle = "Error_CompatibleTitle";
constexpr const char* kErrorCompatibleMes = "Error_CompatibleMes";
constexpr const char* kErrorCompatibleNext = "Error_CompatibleNext";
constexpr const char* kErrorOtherTitle = "Error_OtherTitle";
constexpr const char* kErrorOtherMes = "Error_OtherMes";
constexpr const char* kErrorOtherNext = "Error_OtherNext";
constexpr const char* kErrorBytesSent = "Error_BytesSent"; // unless all of them are confirmed
constexpr const char* kResultConfirmed = "Result_Confirmed"; // (text) the firmware's name
constexpr const char* kResultSent = "Result_Sent"; // (text) as above; not confirmed
constexpr const char* kResultPartly = "Result_Partly"; // (text) as above
constexpr const char* kResultNothingSent = "Result_NothingSent"; // after an error

// A query of the printer after an end that it did not confirm.
constexpr const char* kCheckButton = "Check_Button"; // on the result
constexpr const char* kCheckWaiting = "Check_Waiting";
constexpr const char* kCheckInstalledTitle = "Check_InstalledTitle";
constexpr const char* kCheckInstalledMes = "Check_InstalledMes";
constexpr const char* kCheckDifferentTitle = "Check_DifferentTitle";
constexpr const char* kCheckDifferentMes = "Check_DifferentMes";
constexpr const char* kCheckDifferentNext = "Check_DifferentNext";
constexpr const char* kCheckUnknownTitle = "Check_UnknownTitle";
constexpr const char* kCheckUnknownMes = "Check_UnknownMes";
constexpr const char* kCheckUnknownNext = "Check_UnknownNext";

// Details under an alert.
constexpr const char* kDetailsButton = "Details_Button"; // opens them
constexpr const char* kDetailsPrinter = "Details_Printer"; // (text) the printer's name or address
constexpr const char* kDetailsPackage = "Details_Package"; // (text) the package's folder
constexpr const char* kDetailsResult = "Details_Result"; // (text) the result's name
constexpr const char* kDetailsProcess = "Details_Process"; // (text) of the other update
constexpr const char* kDetailsLog = "Details_Log"; // (text) the path of the run's log

// Names for screen readers, for controls without a text.
constexpr const char* kNoteName = "Icon_Note";
constexpr const char* kCautionName = "Icon_Caution";

// The steps, shown as "where am I".
constexpr const char* kStepOpening = "Step_Opening";
constexpr const char* kStepPreparation = "Step_Preparation";
constexpr const char* kStepDevice = "Step_Device";
constexpr const char* kStepConfirmation = "Step_Confirmation";
constexpr const char* kStepUpdate = "Step_Update";

} // namespace textkey
