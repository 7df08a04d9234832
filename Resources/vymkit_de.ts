<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>Localizable</name>
    <message>
        <source>Morix Vymkit</source>
        <translation>Morix Vymkit</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Start_Description</source>
        <translation>Vymkit installiert die Firmware dieses Pakets in Ihrem Drucker. Zuerst wird abgefragt, was im Drucker installiert ist; übertragen wird nur die passende Firmware.</translation>
    </message>
    <message>
        <source>Start_DevNameTitle</source>
        <translation>Druckermodell</translation>
    </message>
    <message>
        <source>Start_FirmInfoTitle</source>
        <translation>Firmware in diesem Paket</translation>
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
        <translation>Signiert mit %@.</translation>
    </message>
    <message>
        <source>Start_NoPackageTitle</source>
        <translation>Es gibt noch kein Update-Paket</translation>
    </message>
    <message>
        <source>Start_NoPackage</source>
        <translation>Ein Update-Paket ist eine Datei vom Hersteller Ihres Druckers. Sie heißt meist VYMBINDDATA oder endet auf .vymbind. Wählen Sie sie hier aus.</translation>
    </message>
    <message>
        <source>Start_ChoosePackage</source>
        <translation>Paket auswählen …</translation>
    </message>
    <message>
        <source>Start_VersionTxt</source>
        <translation>Vymkit Version %@</translation>
    </message>
    <message>
        <source>Preference_Description</source>
        <translation>Bevor Sie beginnen</translation>
    </message>
    <message>
        <source>Preference_CheckPointTitle</source>
        <translation>Stellen Sie Folgendes sicher:</translation>
    </message>
    <message>
        <source>Preference_CheckPoint</source>
        <translation>• Der Drucker ist eingeschaltet und zeigt keinen Fehler an.
• Er ist über ein USB-Kabel mit diesem Computer verbunden, oder beide sind im selben Netzwerk, und alle Stecker sitzen fest.
• Niemand druckt, scannt oder faxt mit dem Drucker, bis die Aktualisierung abgeschlossen ist.
• Weder der Drucker noch dieser Computer wird ausgeschaltet oder vom Strom getrennt. Ein Notebook ist an das Netzteil angeschlossen.</translation>
    </message>
    <message>
        <source>Preference_DownLoadMode</source>
        <translation>Dieser Drucker muss von Hand in seinen Update-Modus (Download-Modus) versetzt werden. Tun Sie das jetzt, bevor Sie fortfahren; wie es geht, steht im Handbuch des Druckers.</translation>
    </message>
    <message>
        <source>Device_Description</source>
        <translation>Drucker auswählen</translation>
    </message>
    <message>
        <source>Device_Comment</source>
        <translation>Wählen Sie den Drucker aus, den Sie aktualisieren möchten, oder geben Sie seine IP-Adresse ein.</translation>
    </message>
    <message>
        <source>Device_Comment2</source>
        <translation>Wählen Sie den Drucker aus, den Sie aktualisieren möchten.</translation>
    </message>
    <message>
        <source>Device_SpecifyPrinteName</source>
        <translation>Ein Drucker aus der &amp;Liste</translation>
    </message>
    <message>
        <source>Device_SpecifyIPAddress</source>
        <translation>Der Drucker mit dieser IP-A&amp;dresse</translation>
    </message>
    <message>
        <source>Device_ListPrinterName</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>Device_ListPortName</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressTitle</source>
        <translation>Geben Sie die IP-Adresse des Druckers ein</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressMes</source>
        <translation>0.0.0.0 ist nicht die Adresse eines Druckers. Geben Sie die vier Zahlen seiner IP-Adresse ein, zum Beispiel 192.0.2.7. Der Drucker zeigt sie in seinen Netzwerkeinstellungen an.</translation>
    </message>
    <message>
        <source>USB Printer</source>
        <translation>USB-Drucker</translation>
    </message>
    <message>
        <source>Device_AddressName</source>
        <translation>IP-Adresse des Druckers</translation>
    </message>
    <message>
        <source>Device_AddressCell</source>
        <translation>IP-Adresse, Zahl %u von 4</translation>
    </message>
    <message>
        <source>Device_Searching</source>
        <translation>Drucker werden gesucht …</translation>
    </message>
    <message>
        <source>Device_Asking</source>
        <translation>%@ wird abgefragt …</translation>
    </message>
    <message>
        <source>Device_SearchAgain</source>
        <translation>Erneut suchen (F5)</translation>
    </message>
    <message>
        <source>Device_Found</source>
        <translation>Gefundene Drucker: %u</translation>
    </message>
    <message>
        <source>Device_NoPrinters</source>
        <translation>Es wurde kein Drucker gefunden, für den dieses Paket bestimmt ist. Ist Ihr Drucker im Netzwerk, geben Sie seine IP-Adresse ein. Ist er über USB angeschlossen, schalten Sie ihn ein, prüfen Sie das Kabel und suchen Sie dann erneut.</translation>
    </message>
    <message>
        <source>Device_NoPrinters2</source>
        <translation>Es wurde kein Drucker gefunden, für den dieses Paket bestimmt ist. Schalten Sie den Drucker ein, prüfen Sie seine Verbindung und ob er auf diesem Computer eingerichtet ist, und suchen Sie dann erneut.</translation>
    </message>
    <message>
        <source>Device_Reasons</source>
        <translation>Warum fehlt mein Drucker in der Liste? (F1)</translation>
    </message>
    <message>
        <source>Device_WhyTitle</source>
        <translation>Drucker, die nicht in der Liste stehen</translation>
    </message>
    <message>
        <source>Device_WhyNothing</source>
        <translation>Auf diesem Computer gibt es keine weitere Druckerwarteschlange, und es ist kein weiterer Drucker über USB angeschlossen.</translation>
    </message>
    <message>
        <source>Device_WhyNetwork</source>
        <translation>Vymkit durchsucht das Netzwerk nicht. Ist Ihr Drucker dort angeschlossen, geben Sie seine IP-Adresse ein; er zeigt sie in seinen Netzwerkeinstellungen an.</translation>
    </message>
    <message>
        <source>Device_WhyServer</source>
        <translation>Die Druckerwarteschlangen konnten nicht gelesen werden. Prüfen Sie, ob der Druckdienst (CUPS) dieses Computers läuft, und suchen Sie dann erneut.</translation>
    </message>
    <message>
        <source>Device_WhyNoModel</source>
        <translation>Seine Warteschlange nennt kein Modell.</translation>
    </message>
    <message>
        <source>Device_WhyOtherDriver</source>
        <translation>Seine Warteschlange verwendet einen Treiber, für den dieses Paket nicht bestimmt ist.</translation>
    </message>
    <message>
        <source>Device_WhyNoAddress</source>
        <translation>Seine Warteschlange hat keine Adresse.</translation>
    </message>
    <message>
        <source>Device_WhyDriverAddress</source>
        <translation>In den Einstellungen seines Treibers fehlt seine Adresse.</translation>
    </message>
    <message>
        <source>Device_WhyOtherConnection</source>
        <translation>Seine Warteschlange verwendet eine Verbindung, über die Vymkit nicht aktualisiert.</translation>
    </message>
    <message>
        <source>Device_WhyNoSerial</source>
        <translation>Er meldet keine Seriennummer und lässt sich daher nicht von anderen unterscheiden.</translation>
    </message>
    <message>
        <source>Device_WhyDuplicate</source>
        <translation>Es ist derselbe Drucker wie %@.</translation>
    </message>
    <message>
        <source>Device_WhyNotPermitted</source>
        <translation>Er ist angeschlossen, aber Sie dürfen nicht direkt auf ihn zugreifen.</translation>
    </message>
    <message>
        <source>Device_WhyNoAnswer</source>
        <translation>Er antwortet nicht. Schalten Sie ihn ein, prüfen Sie das Kabel und ob ein anderes Programm ihn benutzt, und suchen Sie dann erneut.</translation>
    </message>
    <message>
        <source>Device_WhyOtherModel</source>
        <translation>Er ist ein anderes Modell: %@</translation>
    </message>
    <message>
        <source>Device_HelpAddress</source>
        <translation>Ist es das Modell, für das dieses Paket bestimmt ist, geben Sie stattdessen seine IP-Adresse ein.</translation>
    </message>
    <message>
        <source>Device_UseAddress</source>
        <translation>%@ verwenden</translation>
    </message>
    <message>
        <source>Device_HelpRule</source>
        <translation>Die Systemverwaltung kann den Zugriff erlauben: Fügen Sie diese Zeile in die Datei %@ ein, ziehen Sie dann das USB-Kabel des Druckers ab und stecken Sie es wieder ein.</translation>
    </message>
    <message>
        <source>Device_CopyLine</source>
        <translation>Zeile kopieren</translation>
    </message>
    <message>
        <source>Device_Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Guide_Description</source>
        <translation>Bereit zum Aktualisieren</translation>
    </message>
    <message>
        <source>Guide_Comment</source>
        <translation>Prüfen Sie, ob dies der Drucker ist, den Sie aktualisieren möchten.</translation>
    </message>
    <message>
        <source>Guide_TargetDeviceTitle</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>Guide_PortNameTitle</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>Guide_StartUpdateCmt</source>
        <translation>Mit „Starten“ beginnt die Aktualisierung. Sobald sie läuft, kann sie nicht mehr abgebrochen werden.</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Title</source>
        <translation>Aktualisierung starten?</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Description</source>
        <translation>Die passende Firmware dieses Pakets wird an den Drucker übertragen. Einmal gestartet, kann die Aktualisierung nicht mehr abgebrochen werden. Schalten Sie den Drucker nicht aus und drucken Sie nicht, bis sie abgeschlossen ist.</translation>
    </message>
    <message>
        <source>Confirmation_CutOff</source>
        <translation>Eine frühere Aktualisierung dieses Druckers wurde unterbrochen (Beginn: %@). Der Drucker hat sie vielleicht nur teilweise übernommen.</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Title</source>
        <translation>Aktualisierung starten, auch wenn sie eine ältere Version installiert?</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Description</source>
        <translation>Dieses Paket kann neuere Firmware im Drucker durch ältere ersetzen. Einmal gestartet, kann die Aktualisierung nicht mehr abgebrochen werden. Schalten Sie den Drucker nicht aus und drucken Sie nicht, bis sie abgeschlossen ist.</translation>
    </message>
    <message>
        <source>Cancel_MesTitle</source>
        <translation>Beenden, ohne zu aktualisieren?</translation>
    </message>
    <message>
        <source>Cancel_Message</source>
        <translation>Es wurde nichts an den Drucker gesendet. Mit „Nein“ bleiben Sie auf dieser Seite.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Title</source>
        <translation>Dieses System wird nicht unterstützt</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Mes</source>
        <translation>Dieses Update-Paket kann mit der Betriebssystemversion dieses Computers nicht verwendet werden. Verwenden Sie es auf einem Computer mit einer Version, die es unterstützt, oder besorgen Sie ein Paket für diesen. Es wurde nichts an einen Drucker gesendet.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Package</source>
        <translation>Das Update-Paket kann nicht verwendet werden, deshalb ist nicht bekannt, welche Systeme es unterstützt: %@</translation>
    </message>
    <message>
        <source>Package_NameTooLong</source>
        <translation>Der Name des Paketordners oder der Paketdatei ist zu lang. Wählen Sie einen kürzeren Namen, oder legen Sie das Paket in einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Package_NoFolder</source>
        <translation>Den Ordner „%@“ gibt es nicht, oder er kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Package_NotInFolder</source>
        <translation>Im Ordner „%@“ liegt kein Update-Paket (VYMBINDDATA).</translation>
    </message>
    <message>
        <source>Package_NotAFile</source>
        <translation>„%@“ ist keine Datei.</translation>
    </message>
    <message>
        <source>Package_NotReadable</source>
        <translation>Sie haben keine Berechtigung, „%@“ zu lesen. Wenden Sie sich an die Person, der die Datei gehört.</translation>
    </message>
    <message>
        <source>Package_NoMemory</source>
        <translation>Der Arbeitsspeicher reicht nicht aus, um das Paket zu lesen. Schließen Sie andere Programme und versuchen Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Package_Damaged</source>
        <translation>„%@“ ist kein Update-Paket oder ist beschädigt.</translation>
    </message>
    <message>
        <source>Package_NoDescription</source>
        <translation>Das Paket enthält keine Beschreibung (VYMINFO.txt).</translation>
    </message>
    <message>
        <source>Package_LargeDescription</source>
        <translation>Die Beschreibung des Pakets ist größer als %u MiB.</translation>
    </message>
    <message>
        <source>Package_LongRow</source>
        <translation>Die Beschreibung des Pakets enthält eine Zeile von mehr als %u Byte.</translation>
    </message>
    <message>
        <source>Package_NoFirmware</source>
        <translation>Die Beschreibung des Pakets führt keine Firmware auf.</translation>
    </message>
    <message>
        <source>Package_ManyFirmware</source>
        <translation>Die Beschreibung des Pakets führt mehr als %u Firmware-Einträge auf.</translation>
    </message>
    <message>
        <source>Package_BadPort</source>
        <translation>Die Portnummer im Paket liegt nicht zwischen 1 und 65535.</translation>
    </message>
    <message>
        <source>Package_ReadError</source>
        <translation>Das Paket konnte nicht bis zum Ende gelesen werden, oder der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
    <message>
        <source>Package_KeysUnreadable</source>
        <translation>Die vertrauenswürdigen Schlüssel in „%@“ können nicht gelesen werden. Wenden Sie sich an die Systemverwaltung.</translation>
    </message>
    <message>
        <source>Package_NoSignatureCheck</source>
        <translation>Dieses Programm wurde ohne libsodium erstellt und kann keine Signaturen prüfen. Wenden Sie sich an die Systemverwaltung.</translation>
    </message>
    <message>
        <source>Package_NotSigned</source>
        <translation>Das Paket ist nicht signiert: Die Datei „%@“ fehlt.</translation>
    </message>
    <message>
        <source>Package_SignatureUnreadable</source>
        <translation>Die Signatur „%@“ des Pakets kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Package_SignatureOld</source>
        <translation>Die Signatur „%@“ des Pakets hat ein veraltetes Format (erstellt mit der Option -l von minisign).</translation>
    </message>
    <message>
        <source>Package_SignatureForeign</source>
        <translation>Die Signatur „%@“ stammt von keinem vertrauenswürdigen Schlüssel, oder das Paket wurde nach dem Signieren verändert.</translation>
    </message>
    <message>
        <source>Package_KeyUnreadable</source>
        <translation>%@ (nicht lesbar)</translation>
    </message>
    <message>
        <source>Package_TrustedKeys</source>
        <translation>Dieser Computer nimmt nur Pakete an, die mit einem vertrauenswürdigen Schlüssel signiert sind: %@. Besorgen Sie sich das Paket und seine Signatur vom Hersteller.</translation>
    </message>
    <message>
        <source>Package_GetAgain</source>
        <translation>Besorgen Sie sich das Paket noch einmal vom Hersteller.</translation>
    </message>
    <message>
        <source>Report_Save</source>
        <translation>Bericht speichern …</translation>
    </message>
    <message>
        <source>Report_Saved</source>
        <translation>Der Bericht wurde gespeichert</translation>
    </message>
    <message>
        <source>Report_NotSaved</source>
        <translation>Der Bericht konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Report_Masked</source>
        <translation>Er ist für alle bestimmt, die Ihnen helfen. Namen von Personen, Computern und Dateien, Adressen und Seriennummern sind darin unkenntlich gemacht. Lesen Sie ihn, bevor Sie ihn weitergeben.</translation>
    </message>
    <message>
        <source>Update_Description</source>
        <translation>Der Drucker wird aktualisiert</translation>
    </message>
    <message>
        <source>Update_Precaution</source>
        <translation>Bis die Aktualisierung abgeschlossen ist:
• Schalten Sie den Drucker nicht aus und ziehen Sie keine Kabel ab.
• Drucken, scannen und faxen Sie nicht mit ihm.
• Schalten Sie diesen Computer nicht aus.
Die Aktualisierung kann mehrere Minuten dauern, und der Balken kann eine Weile stillstehen.</translation>
    </message>
    <message>
        <source>Update_CloseRefused</source>
        <translation>Das Fenster bleibt offen: Eine abgebrochene Aktualisierung kann den Drucker unbrauchbar machen. Das Fenster schließt sich von selbst, sobald die Aktualisierung abgeschlossen ist.</translation>
    </message>
    <message>
        <source>Update_Quiet</source>
        <translation>Seit %@ hat sich nichts geändert. Das kann normal sein: Manche Drucker schreiben viele Minuten lang, ohne dass etwas zu sehen ist. Schalten Sie den Drucker nicht aus und ziehen Sie kein Kabel ab.</translation>
    </message>
    <message>
        <source>Update_ProgressName</source>
        <translation>Fortschritt der Aktualisierung</translation>
    </message>
    <message>
        <source>State_Connection</source>
        <translation>Verbindung zum Drucker wird hergestellt …</translation>
    </message>
    <message>
        <source>State_CheckVersion</source>
        <translation>Installierte Version wird geprüft …</translation>
    </message>
    <message>
        <source>State_CheckVersion_Plural</source>
        <translation>Installierte Version von Firmware Nr. %u wird geprüft …</translation>
    </message>
    <message>
        <source>State_PrepUpdate</source>
        <translation>Firmware wird gesendet …</translation>
    </message>
    <message>
        <source>State_PrepUpdate_Plural</source>
        <translation>Firmware Nr. %u wird gesendet …</translation>
    </message>
    <message>
        <source>State_WriteUpdate</source>
        <translation>Firmware wird geschrieben …</translation>
    </message>
    <message>
        <source>State_WriteUpdate_Plural</source>
        <translation>Firmware Nr. %u wird geschrieben …</translation>
    </message>
    <message>
        <source>State_Updated</source>
        <translation>Firmware aktualisiert</translation>
    </message>
    <message>
        <source>NormalEndTitle</source>
        <translation>Der Drucker wurde aktualisiert</translation>
    </message>
    <message>
        <source>NormalEnd_AutoMes</source>
        <translation>Der Drucker startet von selbst neu. Lassen Sie ihn eingeschaltet, bis seine Anzeige meldet, dass er bereit ist.</translation>
    </message>
    <message>
        <source>NormalEnd_ManualMes</source>
        <translation>Sobald die Anzeige des Druckers meldet, dass die Aktualisierung abgeschlossen ist, schalten Sie ihn aus und wieder ein.</translation>
    </message>
    <message>
        <source>NoUpdateEndTitle</source>
        <translation>Nichts zu aktualisieren</translation>
    </message>
    <message>
        <source>NoUpdateEnd_AutoMes</source>
        <translation>Der Drucker braucht nichts aus diesem Paket, und es wurde keine Firmware gesendet. Er ist nach kurzer Zeit von selbst wieder bereit.</translation>
    </message>
    <message>
        <source>NoUpdateEnd_ManualMes</source>
        <translation>Der Drucker braucht nichts aus diesem Paket, und es wurde keine Firmware gesendet. Zeigt er noch den Update-Modus an, schalten Sie ihn aus und wieder ein.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorTitle</source>
        <translation>Der Drucker meldet einen Fehler</translation>
    </message>
    <message>
        <source>Error_DeviceErrorMes</source>
        <translation>Die Aktualisierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorNext</source>
        <translation>Sehen Sie auf der Anzeige des Druckers nach, beheben Sie dort den Fehler und starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorTitle</source>
        <translation>Daten kamen beschädigt an</translation>
    </message>
    <message>
        <source>Error_ConnectErrorMes</source>
        <translation>Die Daten wurden auf dem Weg zwischen Computer und Drucker beschädigt, und die Aktualisierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorNext</source>
        <translation>Prüfen Sie Kabel und Netzwerk und starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyTitle</source>
        <translation>Der Drucker ist beschäftigt</translation>
    </message>
    <message>
        <source>Error_DeviceBusyMes</source>
        <translation>Der Drucker kann jetzt nicht aktualisiert werden.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyNext</source>
        <translation>Warten Sie, bis alle Aufträge beendet sind und seine Anzeige meldet, dass er bereit ist, und starten Sie die Aktualisierung dann noch einmal.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningMes</source>
        <translation>Auf diesem Computer läuft bereits eine andere Aktualisierung dieses Druckers.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningNext</source>
        <translation>Warten Sie, bis sie beendet ist, und starten Sie die Aktualisierung dann noch einmal.</translation>
    </message>
    <message>
        <source>Error_FaxTitle</source>
        <translation>Die Faxfunktion des Druckers wird gerade benutzt</translation>
    </message>
    <message>
        <source>Error_FaxMes</source>
        <translation>Der Drucker sendet oder empfängt gerade ein Fax.</translation>
    </message>
    <message>
        <source>Error_FaxNext</source>
        <translation>Warten Sie, bis er damit fertig ist, und starten Sie die Aktualisierung dann noch einmal.</translation>
    </message>
    <message>
        <source>Error_PoweredOffTitle</source>
        <translation>Keine Verbindung zum Drucker</translation>
    </message>
    <message>
        <source>Error_PoweredOffMes</source>
        <translation>Die Verbindung kam nicht zustande oder ging verloren, oder eine Antwort kam nur in Teilen an.</translation>
    </message>
    <message>
        <source>Error_PoweredOffNext</source>
        <translation>Prüfen Sie, ob der Drucker eingeschaltet ist, ob Kabel oder Netzwerk in Ordnung sind, ob die Adresse stimmt und ob nichts die Verbindung blockiert, und starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchTitle</source>
        <translation>Der Drucker ist ein anderes Modell</translation>
    </message>
    <message>
        <source>Error_ModelMismatchMes</source>
        <translation>Dieses Paket ist nicht für das Modell des Druckers bestimmt, und die Aktualisierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchNext</source>
        <translation>Besorgen Sie das Paket für sein Modell, oder beginnen Sie noch einmal und wählen Sie den Drucker, für den dieses Paket bestimmt ist.</translation>
    </message>
    <message>
        <source>Error_FirmReadTitle</source>
        <translation>Die Firmware konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>Error_FirmReadMes</source>
        <translation>Das Update-Paket ist beschädigt oder liegt nicht mehr an seinem Platz.</translation>
    </message>
    <message>
        <source>Error_FirmReadNext</source>
        <translation>Besorgen Sie sich das Paket erneut und starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Error_SystemTitle</source>
        <translation>Die Aktualisierung konnte nicht fortgesetzt werden</translation>
    </message>
    <message>
        <source>Error_SystemMes</source>
        <translation>Auf diesem Computer ist etwas fehlgeschlagen, oder der Drucker hat zu wenig über sich mitgeteilt.</translation>
    </message>
    <message>
        <source>Error_SystemNext</source>
        <translation>Starten Sie die Aktualisierung noch einmal. Hilft das nicht, starten Sie zuvor diesen Computer neu.</translation>
    </message>
    <message>
        <source>Error_CompatibleTitle</source>
        <translation>Die installierte Version ist zu alt</translation>
    </message>
    <message>
        <source>Error_CompatibleMes</source>
        <translation>Dieses Paket kann die im Drucker installierte Version nicht aktualisieren.</translation>
    </message>
    <message>
        <source>Error_CompatibleNext</source>
        <translation>Installieren Sie zuerst ein älteres Paket und danach dieses.</translation>
    </message>
    <message>
        <source>Error_OtherTitle</source>
        <translation>Der Drucker antwortet nicht wie erwartet</translation>
    </message>
    <message>
        <source>Error_OtherMes</source>
        <translation>Der Drucker hat nicht rechtzeitig geantwortet, oder seine Antwort war unvollständig oder unbrauchbar. Die Aktualisierung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Error_OtherNext</source>
        <translation>Prüfen Sie, ob der Drucker bereit und noch verbunden ist, und starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Error_BytesSent</source>
        <translation>Schalten Sie den Drucker nicht aus: Warten Sie, bis seine Anzeige meldet, dass er bereit ist. Bleibt er im Update-Modus, starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Result_Confirmed</source>
        <translation>%@: gesendet und vom Drucker bestätigt.</translation>
    </message>
    <message>
        <source>Result_Sent</source>
        <translation>%@: gesendet, aber vom Drucker nicht bestätigt.</translation>
    </message>
    <message>
        <source>Result_Partly</source>
        <translation>%@: nur teilweise gesendet.</translation>
    </message>
    <message>
        <source>Result_NothingSent</source>
        <translation>Es wurde keine Firmware gesendet.</translation>
    </message>
    <message>
        <source>Check_Button</source>
        <translation>Drucker jetzt prüfen</translation>
    </message>
    <message>
        <source>Check_Waiting</source>
        <translation>Die Firmware des Druckers wird geprüft …</translation>
    </message>
    <message>
        <source>Check_InstalledTitle</source>
        <translation>Die neue Firmware ist installiert</translation>
    </message>
    <message>
        <source>Check_InstalledMes</source>
        <translation>Der Drucker meldet die Versionen, die ihm gesendet wurden.</translation>
    </message>
    <message>
        <source>Check_DifferentTitle</source>
        <translation>Die neue Firmware ist nicht installiert</translation>
    </message>
    <message>
        <source>Check_DifferentMes</source>
        <translation>Der Drucker meldet eine andere Version als die, die ihm gesendet wurde.</translation>
    </message>
    <message>
        <source>Check_DifferentNext</source>
        <translation>Ist er noch beschäftigt, warten Sie, bis seine Anzeige meldet, dass er bereit ist, und prüfen Sie ihn dann erneut. Andernfalls starten Sie die Aktualisierung noch einmal.</translation>
    </message>
    <message>
        <source>Check_UnknownTitle</source>
        <translation>Die installierte Version ist nicht bekannt</translation>
    </message>
    <message>
        <source>Check_UnknownMes</source>
        <translation>Der Drucker hat nicht mitgeteilt, welche Firmware er hat. Vielleicht startet er gerade neu; das kann mehrere Minuten dauern.</translation>
    </message>
    <message>
        <source>Check_UnknownNext</source>
        <translation>Schalten Sie den Drucker nicht aus: Warten Sie, bis seine Anzeige meldet, dass er bereit ist, und prüfen Sie ihn dann erneut.</translation>
    </message>
    <message>
        <source>Details_Button</source>
        <translation>&amp;Details</translation>
    </message>
    <message>
        <source>Details_Printer</source>
        <translation>Drucker: %@</translation>
    </message>
    <message>
        <source>Details_Package</source>
        <translation>Paket: %@</translation>
    </message>
    <message>
        <source>Details_Result</source>
        <translation>Ergebnis: %@</translation>
    </message>
    <message>
        <source>Details_Process</source>
        <translation>Prozess der anderen Aktualisierung: %@</translation>
    </message>
    <message>
        <source>Details_Log</source>
        <translation>Protokoll dieses Laufs: %@</translation>
    </message>
    <message>
        <source>Icon_Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Icon_Caution</source>
        <translation>Vorsicht</translation>
    </message>
    <message>
        <source>Step_Opening</source>
        <translation>Paket</translation>
    </message>
    <message>
        <source>Step_Preparation</source>
        <translation>Vorbereitung</translation>
    </message>
    <message>
        <source>Step_Device</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>Step_Confirmation</source>
        <translation>Bestätigung</translation>
    </message>
    <message>
        <source>Step_Update</source>
        <translation>Aktualisierung</translation>
    </message>
</context>
</TS>
