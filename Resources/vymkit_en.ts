<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Localizable</name>
    <message>
        <source>Morix Vymkit</source>
        <translation>Morix Vymkit</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>&amp;Next</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>&amp;Back</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Start_Description</source>
        <translation>Vymkit installs the firmware of this package in your printer. It first checks what is installed, and sends only the firmware that the printer needs.</translation>
    </message>
    <message>
        <source>Start_DevNameTitle</source>
        <translation>Printer model</translation>
    </message>
    <message>
        <source>Start_FirmInfoTitle</source>
        <translation>Firmware in this package</translation>
    </message>
    <message>
        <source>Start_ListTypeTitle</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Start_ListVerTitle</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Start_SignedWith</source>
        <translation>Signed with %@.</translation>
    </message>
    <message>
        <source>Start_NoPackageTitle</source>
        <translation>There is no update package yet</translation>
    </message>
    <message>
        <source>Start_NoPackage</source>
        <translation>An update package is a file from the maker of your printer, usually called VYMBINDDATA or ending in .vymbind. Choose it here.</translation>
    </message>
    <message>
        <source>Start_ChoosePackage</source>
        <translation>Choose package…</translation>
    </message>
    <message>
        <source>Start_VersionTxt</source>
        <translation>Vymkit version %@</translation>
    </message>
    <message>
        <source>Preference_Description</source>
        <translation>Before you start</translation>
    </message>
    <message>
        <source>Preference_CheckPointTitle</source>
        <translation>Make sure of the following:</translation>
    </message>
    <message>
        <source>Preference_CheckPoint</source>
        <translation>• The printer is switched on and shows no error.
• It is connected to this computer by a USB cable, or both are connected to the same network, and all plugs are firmly in place.
• Nobody prints, scans or faxes with the printer until the update has finished.
• Neither the printer nor this computer will be switched off or lose power. A portable computer is plugged in.</translation>
    </message>
    <message>
        <source>Preference_DownLoadMode</source>
        <translation>This printer has to be set to its update mode (download mode) by hand. Do so now, before you continue; the printer’s manual says how.</translation>
    </message>
    <message>
        <source>Device_Description</source>
        <translation>Choose the printer</translation>
    </message>
    <message>
        <source>Device_Comment</source>
        <translation>Choose the printer that you want to update, or enter its IP address.</translation>
    </message>
    <message>
        <source>Device_Comment2</source>
        <translation>Choose the printer that you want to update.</translation>
    </message>
    <message>
        <source>Device_SpecifyPrinteName</source>
        <translation>A &amp;printer in the list</translation>
    </message>
    <message>
        <source>Device_SpecifyIPAddress</source>
        <translation>The printer at this IP &amp;address</translation>
    </message>
    <message>
        <source>Device_ListPrinterName</source>
        <translation>Printer</translation>
    </message>
    <message>
        <source>Device_ListPortName</source>
        <translation>Connection</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressTitle</source>
        <translation>Enter the printer’s IP address</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressMes</source>
        <translation>0.0.0.0 is not the address of a printer. Enter the four numbers of its IP address, for example 192.0.2.7. The printer shows them in its network settings.</translation>
    </message>
    <message>
        <source>USB Printer</source>
        <translation>USB printer</translation>
    </message>
    <message>
        <source>Device_AddressName</source>
        <translation>IP address of the printer</translation>
    </message>
    <message>
        <source>Device_AddressCell</source>
        <translation>IP address, number %u of 4</translation>
    </message>
    <message>
        <source>Device_Searching</source>
        <translation>Looking for printers…</translation>
    </message>
    <message>
        <source>Device_Asking</source>
        <translation>Checking %@…</translation>
    </message>
    <message>
        <source>Device_SearchAgain</source>
        <translation>Search again (F5)</translation>
    </message>
    <message>
        <source>Device_Found</source>
        <translation>Printers found: %u</translation>
    </message>
    <message>
        <source>Device_NoPrinters</source>
        <translation>Vymkit found no printer that this package can update. If yours is on the network, enter its IP address. If it is connected by USB, switch it on, check the cable, then search again.</translation>
    </message>
    <message>
        <source>Device_NoPrinters2</source>
        <translation>Vymkit found no printer that this package can update. Switch the printer on, check its connection and that it is set up on this computer, then search again.</translation>
    </message>
    <message>
        <source>Device_Reasons</source>
        <translation>Why is my printer not in the list? (F1)</translation>
    </message>
    <message>
        <source>Device_WhyTitle</source>
        <translation>Printers that are not in the list</translation>
    </message>
    <message>
        <source>Device_WhyNothing</source>
        <translation>This computer has no other print queue, and no other printer is connected to it by USB.</translation>
    </message>
    <message>
        <source>Device_WhyNetwork</source>
        <translation>Vymkit does not search the network. If your printer is there, enter its IP address; the printer shows it in its network settings.</translation>
    </message>
    <message>
        <source>Device_WhyServer</source>
        <translation>The print queues could not be read. Check that the print service (CUPS) of this computer is running, then search again.</translation>
    </message>
    <message>
        <source>Device_WhyNoModel</source>
        <translation>Its print queue does not name a model.</translation>
    </message>
    <message>
        <source>Device_WhyOtherDriver</source>
        <translation>Its print queue uses a driver that this package is not for.</translation>
    </message>
    <message>
        <source>Device_WhyNoAddress</source>
        <translation>Its print queue has no address.</translation>
    </message>
    <message>
        <source>Device_WhyDriverAddress</source>
        <translation>Its driver’s settings do not have its address.</translation>
    </message>
    <message>
        <source>Device_WhyOtherConnection</source>
        <translation>Its print queue uses a connection that Vymkit does not use for updates.</translation>
    </message>
    <message>
        <source>Device_WhyNoSerial</source>
        <translation>It reports no serial number, so it cannot be distinguished from other printers.</translation>
    </message>
    <message>
        <source>Device_WhyDuplicate</source>
        <translation>It is the same printer as %@.</translation>
    </message>
    <message>
        <source>Device_WhyNotPermitted</source>
        <translation>It is connected, but you do not have permission to use it directly.</translation>
    </message>
    <message>
        <source>Device_WhyNoAnswer</source>
        <translation>It does not answer. Switch it on, check its cable and that no other program is using it, then search again.</translation>
    </message>
    <message>
        <source>Device_WhyOtherModel</source>
        <translation>It is another model: %@</translation>
    </message>
    <message>
        <source>Device_HelpAddress</source>
        <translation>If it is the model that this package is for, enter its IP address instead.</translation>
    </message>
    <message>
        <source>Device_UseAddress</source>
        <translation>Use %@</translation>
    </message>
    <message>
        <source>Device_HelpRule</source>
        <translation>An administrator can permit it: add this line to the file %@, then unplug the printer’s USB cable and plug it in again.</translation>
    </message>
    <message>
        <source>Device_CopyLine</source>
        <translation>Copy the line</translation>
    </message>
    <message>
        <source>Device_Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Guide_Description</source>
        <translation>Ready to update</translation>
    </message>
    <message>
        <source>Guide_Comment</source>
        <translation>Check that this is the printer that you want to update.</translation>
    </message>
    <message>
        <source>Guide_TargetDeviceTitle</source>
        <translation>Printer</translation>
    </message>
    <message>
        <source>Guide_PortNameTitle</source>
        <translation>Connection</translation>
    </message>
    <message>
        <source>Guide_StartUpdateCmt</source>
        <translation>Choose Start to begin the update. Once it runs, it cannot be cancelled.</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Title</source>
        <translation>Start the update?</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Description</source>
        <translation>Vymkit sends the printer the firmware that it needs from this package. Once started, the update cannot be cancelled. Until it has finished, do not switch the printer off and do not print.</translation>
    </message>
    <message>
        <source>Confirmation_CutOff</source>
        <translation>An earlier update of this printer was cut off (started %@). The printer may have taken only a part of it.</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Title</source>
        <translation>Start the update, even to an older version?</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Description</source>
        <translation>This package may replace newer firmware in the printer with older firmware. Once started, the update cannot be cancelled. Until it has finished, do not switch the printer off and do not print.</translation>
    </message>
    <message>
        <source>Cancel_MesTitle</source>
        <translation>Quit without updating?</translation>
    </message>
    <message>
        <source>Cancel_Message</source>
        <translation>Nothing has been sent to the printer. Choose No to stay on this page.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Title</source>
        <translation>This system is not supported</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Mes</source>
        <translation>This update package cannot be used with the version of the operating system on this computer. Use it on a computer with a version that it supports, or get a package for this one. Nothing has been sent to a printer.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Package</source>
        <translation>The update package cannot be used, so it is not known which systems it supports: %@</translation>
    </message>
    <message>
        <source>Package_NameTooLong</source>
        <translation>The name of the package’s folder or file is too long. Choose a shorter name, or put the package into another folder.</translation>
    </message>
    <message>
        <source>Package_NoFolder</source>
        <translation>There is no folder “%@”, or it cannot be read.</translation>
    </message>
    <message>
        <source>Package_NotInFolder</source>
        <translation>The folder “%@” contains no update package (VYMBINDDATA).</translation>
    </message>
    <message>
        <source>Package_NotAFile</source>
        <translation>“%@” is not a file.</translation>
    </message>
    <message>
        <source>Package_NotReadable</source>
        <translation>You do not have permission to read “%@”. Ask its owner.</translation>
    </message>
    <message>
        <source>Package_NoMemory</source>
        <translation>There is not enough memory to read the package. Close other programs, then try again.</translation>
    </message>
    <message>
        <source>Package_Damaged</source>
        <translation>“%@” is not an update package, or it is damaged.</translation>
    </message>
    <message>
        <source>Package_NoDescription</source>
        <translation>The package contains no description (VYMINFO.txt).</translation>
    </message>
    <message>
        <source>Package_LargeDescription</source>
        <translation>The package’s description is larger than %u MiB.</translation>
    </message>
    <message>
        <source>Package_LongRow</source>
        <translation>The package’s description has a row of more than %u bytes.</translation>
    </message>
    <message>
        <source>Package_NoFirmware</source>
        <translation>The package’s description lists no firmware.</translation>
    </message>
    <message>
        <source>Package_ManyFirmware</source>
        <translation>The package’s description has more than %u firmware entries.</translation>
    </message>
    <message>
        <source>Package_BadPort</source>
        <translation>The port number in the package is not between 1 and 65535.</translation>
    </message>
    <message>
        <source>Package_ReadError</source>
        <translation>The package could not be read to its end, or there is not enough memory.</translation>
    </message>
    <message>
        <source>Package_KeysUnreadable</source>
        <translation>The trusted keys in “%@” cannot be read. Ask the administrator of this computer.</translation>
    </message>
    <message>
        <source>Package_NoSignatureCheck</source>
        <translation>This program was built without libsodium and cannot check signatures. Ask the administrator of this computer.</translation>
    </message>
    <message>
        <source>Package_NotSigned</source>
        <translation>The package is not signed: there is no file “%@”.</translation>
    </message>
    <message>
        <source>Package_SignatureUnreadable</source>
        <translation>The package’s signature “%@” cannot be read.</translation>
    </message>
    <message>
        <source>Package_SignatureOld</source>
        <translation>The package’s signature “%@” has an old form, made with the option -l of minisign.</translation>
    </message>
    <message>
        <source>Package_SignatureForeign</source>
        <translation>The package’s signature “%@” was not made with a trusted key, or the package was changed after it was signed.</translation>
    </message>
    <message>
        <source>Package_KeyUnreadable</source>
        <translation>%@ (cannot be read)</translation>
    </message>
    <message>
        <source>Package_TrustedKeys</source>
        <translation>This computer accepts only packages that are signed with a trusted key: %@. Get the package and its signature from its maker.</translation>
    </message>
    <message>
        <source>Package_GetAgain</source>
        <translation>Get the package from its maker again.</translation>
    </message>
    <message>
        <source>Report_Save</source>
        <translation>Save report…</translation>
    </message>
    <message>
        <source>Report_Saved</source>
        <translation>The report has been saved</translation>
    </message>
    <message>
        <source>Report_NotSaved</source>
        <translation>The report could not be saved</translation>
    </message>
    <message>
        <source>Report_Masked</source>
        <translation>It is for those who help you. Names of people, computers and files, addresses and serial numbers are masked in it. Read it before you pass it on.</translation>
    </message>
    <message>
        <source>Update_Description</source>
        <translation>The printer is being updated</translation>
    </message>
    <message>
        <source>Update_Precaution</source>
        <translation>Until the update has finished:
• Do not switch the printer off, and do not unplug its cables.
• Do not print, scan or fax with it.
• Do not switch this computer off.
The update can take several minutes, and the bar may stand still for a while.</translation>
    </message>
    <message>
        <source>Update_CloseRefused</source>
        <translation>The window stays open: an update that is cut off may leave the printer unusable. The window closes by itself when the update has finished.</translation>
    </message>
    <message>
        <source>Update_Quiet</source>
        <translation>Nothing has changed since %@. That can be normal: some printers write for many minutes without a sign. Do not switch the printer off, and do not unplug anything.</translation>
    </message>
    <message>
        <source>Update_ProgressName</source>
        <translation>Progress of the update</translation>
    </message>
    <message>
        <source>State_Connection</source>
        <translation>Connecting to the printer…</translation>
    </message>
    <message>
        <source>State_CheckVersion</source>
        <translation>Checking the installed version…</translation>
    </message>
    <message>
        <source>State_CheckVersion_Plural</source>
        <translation>Checking the installed version of firmware no. %u…</translation>
    </message>
    <message>
        <source>State_PrepUpdate</source>
        <translation>Sending the firmware…</translation>
    </message>
    <message>
        <source>State_PrepUpdate_Plural</source>
        <translation>Sending firmware no. %u…</translation>
    </message>
    <message>
        <source>State_WriteUpdate</source>
        <translation>Writing the firmware…</translation>
    </message>
    <message>
        <source>State_WriteUpdate_Plural</source>
        <translation>Writing firmware no. %u…</translation>
    </message>
    <message>
        <source>State_Updated</source>
        <translation>Firmware updated</translation>
    </message>
    <message>
        <source>NormalEndTitle</source>
        <translation>The printer has been updated</translation>
    </message>
    <message>
        <source>NormalEnd_AutoMes</source>
        <translation>The printer restarts by itself. Leave it switched on until its display shows that it is ready.</translation>
    </message>
    <message>
        <source>NormalEnd_ManualMes</source>
        <translation>When the printer’s display shows that the update has finished, switch the printer off and on again.</translation>
    </message>
    <message>
        <source>NoUpdateEndTitle</source>
        <translation>Nothing to update</translation>
    </message>
    <message>
        <source>NoUpdateEnd_AutoMes</source>
        <translation>The printer needs nothing from this package, and no firmware was sent. It becomes ready again by itself.</translation>
    </message>
    <message>
        <source>NoUpdateEnd_ManualMes</source>
        <translation>The printer needs nothing from this package, and no firmware was sent. If its display still shows the update mode, switch it off and on again.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorTitle</source>
        <translation>The printer reported an error</translation>
    </message>
    <message>
        <source>Error_DeviceErrorMes</source>
        <translation>The update was stopped.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorNext</source>
        <translation>Look at the printer’s display, clear the error there, then start the update again.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorTitle</source>
        <translation>Data arrived damaged</translation>
    </message>
    <message>
        <source>Error_ConnectErrorMes</source>
        <translation>The data exchanged with the printer was damaged on the way, and the update was stopped.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorNext</source>
        <translation>Check the cables and the network, then start the update again.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyTitle</source>
        <translation>The printer is busy</translation>
    </message>
    <message>
        <source>Error_DeviceBusyMes</source>
        <translation>The printer cannot be updated now.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyNext</source>
        <translation>Wait until it has finished all jobs and its display shows that it is ready, then start the update again.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningMes</source>
        <translation>Another update of this printer is running on this computer.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningNext</source>
        <translation>Wait until it has ended, then start the update again.</translation>
    </message>
    <message>
        <source>Error_FaxTitle</source>
        <translation>The printer’s fax is in use</translation>
    </message>
    <message>
        <source>Error_FaxMes</source>
        <translation>The printer is sending or receiving a fax.</translation>
    </message>
    <message>
        <source>Error_FaxNext</source>
        <translation>Wait until it has finished, then start the update again.</translation>
    </message>
    <message>
        <source>Error_PoweredOffTitle</source>
        <translation>No connection to the printer</translation>
    </message>
    <message>
        <source>Error_PoweredOffMes</source>
        <translation>The connection could not be made or was lost, or an answer arrived only in part.</translation>
    </message>
    <message>
        <source>Error_PoweredOffNext</source>
        <translation>Check that the printer is switched on, that its cable or network works, that its address is right and that nothing blocks the connection, then start the update again.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchTitle</source>
        <translation>The printer is a different model</translation>
    </message>
    <message>
        <source>Error_ModelMismatchMes</source>
        <translation>This package is not for the printer’s model, and the update was stopped.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchNext</source>
        <translation>Get the package for its model, or start again and choose the printer that this package is for.</translation>
    </message>
    <message>
        <source>Error_FirmReadTitle</source>
        <translation>The firmware could not be read</translation>
    </message>
    <message>
        <source>Error_FirmReadMes</source>
        <translation>The update package is damaged, or it is no longer where it was.</translation>
    </message>
    <message>
        <source>Error_FirmReadNext</source>
        <translation>Get the package again, then start the update again.</translation>
    </message>
    <message>
        <source>Error_SystemTitle</source>
        <translation>The update could not go on</translation>
    </message>
    <message>
        <source>Error_SystemMes</source>
        <translation>Something failed in this computer, or the printer gave too little information about itself.</translation>
    </message>
    <message>
        <source>Error_SystemNext</source>
        <translation>Start the update again. If that does not help, restart this computer first.</translation>
    </message>
    <message>
        <source>Error_CompatibleTitle</source>
        <translation>The installed version is too old</translation>
    </message>
    <message>
        <source>Error_CompatibleMes</source>
        <translation>This package cannot update the version that is installed in the printer.</translation>
    </message>
    <message>
        <source>Error_CompatibleNext</source>
        <translation>Install an older package first, then this one.</translation>
    </message>
    <message>
        <source>Error_OtherTitle</source>
        <translation>The printer did not answer as expected</translation>
    </message>
    <message>
        <source>Error_OtherMes</source>
        <translation>The printer gave no answer in time, or one that was incomplete or that Vymkit could not use, and the update was stopped.</translation>
    </message>
    <message>
        <source>Error_OtherNext</source>
        <translation>Check that the printer is ready and still connected, then start the update again.</translation>
    </message>
    <message>
        <source>Error_BytesSent</source>
        <translation>Do not switch the printer off: wait until its display shows that it is ready. If it stays in the update mode, start the update again.</translation>
    </message>
    <message>
        <source>Result_Confirmed</source>
        <translation>%@: sent, and confirmed by the printer.</translation>
    </message>
    <message>
        <source>Result_Sent</source>
        <translation>%@: sent, but not confirmed by the printer.</translation>
    </message>
    <message>
        <source>Result_Partly</source>
        <translation>%@: sent only in part.</translation>
    </message>
    <message>
        <source>Result_NothingSent</source>
        <translation>No firmware was sent.</translation>
    </message>
    <message>
        <source>Check_Button</source>
        <translation>Check the printer now</translation>
    </message>
    <message>
        <source>Check_Waiting</source>
        <translation>Checking which firmware the printer has…</translation>
    </message>
    <message>
        <source>Check_InstalledTitle</source>
        <translation>The new firmware is installed</translation>
    </message>
    <message>
        <source>Check_InstalledMes</source>
        <translation>The printer reports the versions that were sent to it.</translation>
    </message>
    <message>
        <source>Check_DifferentTitle</source>
        <translation>The new firmware is not installed</translation>
    </message>
    <message>
        <source>Check_DifferentMes</source>
        <translation>The printer reports another version than the one that was sent to it.</translation>
    </message>
    <message>
        <source>Check_DifferentNext</source>
        <translation>If it is still busy, wait until its display shows that it is ready, then check again. Otherwise start the update again.</translation>
    </message>
    <message>
        <source>Check_UnknownTitle</source>
        <translation>The installed version is not known</translation>
    </message>
    <message>
        <source>Check_UnknownMes</source>
        <translation>The printer did not say which firmware it has. It may be restarting, which can take several minutes.</translation>
    </message>
    <message>
        <source>Check_UnknownNext</source>
        <translation>Do not switch the printer off: wait until its display shows that it is ready, then check again.</translation>
    </message>
    <message>
        <source>Details_Button</source>
        <translation>&amp;Details</translation>
    </message>
    <message>
        <source>Details_Printer</source>
        <translation>Printer: %@</translation>
    </message>
    <message>
        <source>Details_Package</source>
        <translation>Package: %@</translation>
    </message>
    <message>
        <source>Details_Result</source>
        <translation>Result: %@</translation>
    </message>
    <message>
        <source>Details_Process</source>
        <translation>Process of the other update: %@</translation>
    </message>
    <message>
        <source>Details_Log</source>
        <translation>Log of this run: %@</translation>
    </message>
    <message>
        <source>Icon_Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Icon_Caution</source>
        <translation>Caution</translation>
    </message>
    <message>
        <source>Step_Opening</source>
        <translation>Package</translation>
    </message>
    <message>
        <source>Step_Preparation</source>
        <translation>Preparation</translation>
    </message>
    <message>
        <source>Step_Device</source>
        <translation>Printer</translation>
    </message>
    <message>
        <source>Step_Confirmation</source>
        <translation>Confirmation</translation>
    </message>
    <message>
        <source>Step_Update</source>
        <translation>Update</translation>
    </message>
</context>
</TS>
