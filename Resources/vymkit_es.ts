<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>Localizable</name>
    <message>
        <source>Morix Vymkit</source>
        <translation>Morix Vymkit</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>&amp;Siguiente</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>&amp;Atrás</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>&amp;Iniciar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>&amp;Sí</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Start_Description</source>
        <translation>Vymkit instala en su impresora el firmware de este paquete. Primero comprueba qué tiene instalado la impresora y solo envía el firmware que corresponde.</translation>
    </message>
    <message>
        <source>Start_DevNameTitle</source>
        <translation>Modelo de impresora</translation>
    </message>
    <message>
        <source>Start_FirmInfoTitle</source>
        <translation>Firmware de este paquete</translation>
    </message>
    <message>
        <source>Start_ListTypeTitle</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Start_ListVerTitle</source>
        <translation>Versión</translation>
    </message>
    <message>
        <source>Start_SignedWith</source>
        <translation>Firmado con %@.</translation>
    </message>
    <message>
        <source>Start_NoPackageTitle</source>
        <translation>Todavía no hay ningún paquete de actualización</translation>
    </message>
    <message>
        <source>Start_NoPackage</source>
        <translation>Un paquete de actualización es un archivo del fabricante de su impresora. Suele llamarse VYMBINDDATA o terminar en .vymbind. Elíjalo aquí.</translation>
    </message>
    <message>
        <source>Start_ChoosePackage</source>
        <translation>Elegir paquete…</translation>
    </message>
    <message>
        <source>Start_VersionTxt</source>
        <translation>Vymkit, versión %@</translation>
    </message>
    <message>
        <source>Preference_Description</source>
        <translation>Antes de empezar</translation>
    </message>
    <message>
        <source>Preference_CheckPointTitle</source>
        <translation>Compruebe lo siguiente:</translation>
    </message>
    <message>
        <source>Preference_CheckPoint</source>
        <translation>• La impresora está encendida y no muestra ningún error.
• Está conectada a este equipo con un cable USB, o ambos están en la misma red, y todos los conectores están bien encajados.
• Nadie imprime, escanea ni envía faxes con ella hasta que termine la actualización.
• Ni la impresora ni este equipo se apagarán ni se quedarán sin corriente. Un equipo portátil está enchufado.</translation>
    </message>
    <message>
        <source>Preference_DownLoadMode</source>
        <translation>Esta impresora debe ponerse manualmente en su modo de actualización (modo de descarga). Hágalo ahora, antes de continuar; el manual de la impresora explica cómo.</translation>
    </message>
    <message>
        <source>Device_Description</source>
        <translation>Elegir la impresora</translation>
    </message>
    <message>
        <source>Device_Comment</source>
        <translation>Elija la impresora que desea actualizar o escriba su dirección IP.</translation>
    </message>
    <message>
        <source>Device_Comment2</source>
        <translation>Elija la impresora que desea actualizar.</translation>
    </message>
    <message>
        <source>Device_SpecifyPrinteName</source>
        <translation>Una impresora de la &amp;lista</translation>
    </message>
    <message>
        <source>Device_SpecifyIPAddress</source>
        <translation>La impresora con esta &amp;dirección IP</translation>
    </message>
    <message>
        <source>Device_ListPrinterName</source>
        <translation>Impresora</translation>
    </message>
    <message>
        <source>Device_ListPortName</source>
        <translation>Conexión</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressTitle</source>
        <translation>Escriba la dirección IP de la impresora</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressMes</source>
        <translation>0.0.0.0 no es la dirección de una impresora. Escriba los cuatro números de su dirección IP, por ejemplo 192.0.2.7. La impresora los muestra en sus ajustes de red.</translation>
    </message>
    <message>
        <source>USB Printer</source>
        <translation>Impresora USB</translation>
    </message>
    <message>
        <source>Device_AddressName</source>
        <translation>Dirección IP de la impresora</translation>
    </message>
    <message>
        <source>Device_AddressCell</source>
        <translation>Dirección IP, número %u de 4</translation>
    </message>
    <message>
        <source>Device_Searching</source>
        <translation>Buscando impresoras…</translation>
    </message>
    <message>
        <source>Device_Asking</source>
        <translation>Consultando %@…</translation>
    </message>
    <message>
        <source>Device_SearchAgain</source>
        <translation>Buscar de nuevo (F5)</translation>
    </message>
    <message>
        <source>Device_Found</source>
        <translation>Impresoras encontradas: %u</translation>
    </message>
    <message>
        <source>Device_NoPrinters</source>
        <translation>No se ha encontrado ninguna impresora a la que esté destinado este paquete. Si la suya está en la red, escriba su dirección IP. Si está conectada por USB, enciéndala, compruebe el cable y vuelva a buscar.</translation>
    </message>
    <message>
        <source>Device_NoPrinters2</source>
        <translation>No se ha encontrado ninguna impresora a la que esté destinado este paquete. Encienda la impresora, compruebe su conexión y que esté configurada en este equipo; después vuelva a buscar.</translation>
    </message>
    <message>
        <source>Device_Reasons</source>
        <translation>¿Por qué no aparece mi impresora en la lista? (F1)</translation>
    </message>
    <message>
        <source>Device_WhyTitle</source>
        <translation>Impresoras que no aparecen en la lista</translation>
    </message>
    <message>
        <source>Device_WhyNothing</source>
        <translation>Este equipo no tiene ninguna otra cola de impresión ni ninguna otra impresora conectada por USB.</translation>
    </message>
    <message>
        <source>Device_WhyNetwork</source>
        <translation>Vymkit no busca en la red. Si su impresora está en ella, escriba su dirección IP; la impresora la muestra en sus ajustes de red.</translation>
    </message>
    <message>
        <source>Device_WhyServer</source>
        <translation>No se han podido leer las colas de impresión. Compruebe que el servicio de impresión (CUPS) de este equipo esté en marcha y vuelva a buscar.</translation>
    </message>
    <message>
        <source>Device_WhyNoModel</source>
        <translation>Su cola de impresión no indica ningún modelo.</translation>
    </message>
    <message>
        <source>Device_WhyOtherDriver</source>
        <translation>Su cola de impresión utiliza un controlador al que este paquete no está destinado.</translation>
    </message>
    <message>
        <source>Device_WhyNoAddress</source>
        <translation>Su cola de impresión no tiene dirección.</translation>
    </message>
    <message>
        <source>Device_WhyDriverAddress</source>
        <translation>Los ajustes de su controlador no contienen su dirección.</translation>
    </message>
    <message>
        <source>Device_WhyOtherConnection</source>
        <translation>Su cola de impresión utiliza una conexión que Vymkit no usa para actualizar.</translation>
    </message>
    <message>
        <source>Device_WhyNoSerial</source>
        <translation>No comunica ningún número de serie, por lo que no se puede distinguir de otras.</translation>
    </message>
    <message>
        <source>Device_WhyDuplicate</source>
        <translation>Es la misma impresora que %@.</translation>
    </message>
    <message>
        <source>Device_WhyNotPermitted</source>
        <translation>Está conectada, pero usted no tiene permiso para acceder directamente a ella.</translation>
    </message>
    <message>
        <source>Device_WhyNoAnswer</source>
        <translation>No responde. Enciéndala, compruebe el cable y que ningún otro programa la esté utilizando, y vuelva a buscar.</translation>
    </message>
    <message>
        <source>Device_WhyOtherModel</source>
        <translation>Es otro modelo: %@</translation>
    </message>
    <message>
        <source>Device_HelpAddress</source>
        <translation>Si es el modelo al que está destinado este paquete, escriba su dirección IP en lugar de elegirla en la lista.</translation>
    </message>
    <message>
        <source>Device_UseAddress</source>
        <translation>Usar %@</translation>
    </message>
    <message>
        <source>Device_HelpRule</source>
        <translation>Un administrador puede permitirlo: añada esta línea al archivo %@; después desconecte el cable USB de la impresora y vuelva a conectarlo.</translation>
    </message>
    <message>
        <source>Device_CopyLine</source>
        <translation>Copiar la línea</translation>
    </message>
    <message>
        <source>Device_Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Guide_Description</source>
        <translation>Todo listo para actualizar</translation>
    </message>
    <message>
        <source>Guide_Comment</source>
        <translation>Compruebe que esta es la impresora que desea actualizar.</translation>
    </message>
    <message>
        <source>Guide_TargetDeviceTitle</source>
        <translation>Impresora</translation>
    </message>
    <message>
        <source>Guide_PortNameTitle</source>
        <translation>Conexión</translation>
    </message>
    <message>
        <source>Guide_StartUpdateCmt</source>
        <translation>Elija «Iniciar» para comenzar la actualización. Una vez en marcha, no se puede cancelar.</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Title</source>
        <translation>¿Iniciar la actualización?</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Description</source>
        <translation>Se envía a la impresora el firmware de este paquete que corresponde. Una vez iniciada, la actualización no se puede cancelar. Hasta que termine, no apague la impresora ni imprima.</translation>
    </message>
    <message>
        <source>Confirmation_CutOff</source>
        <translation>Una actualización anterior de esta impresora se interrumpió (inicio: %@). Es posible que la impresora solo haya recibido una parte.</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Title</source>
        <translation>¿Iniciar la actualización, aunque sea a una versión anterior?</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Description</source>
        <translation>Este paquete puede sustituir un firmware más reciente de la impresora por uno anterior. Una vez iniciada, la actualización no se puede cancelar. Hasta que termine, no apague la impresora ni imprima.</translation>
    </message>
    <message>
        <source>Cancel_MesTitle</source>
        <translation>¿Salir sin actualizar?</translation>
    </message>
    <message>
        <source>Cancel_Message</source>
        <translation>No se ha enviado nada a la impresora. Elija «No» para seguir en esta página.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Title</source>
        <translation>Este sistema no es compatible</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Mes</source>
        <translation>Este paquete de actualización no se puede usar con la versión del sistema operativo de este equipo. Úselo en un equipo con una versión compatible u obtenga un paquete para este. No se ha enviado nada a ninguna impresora.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Package</source>
        <translation>No se puede usar el paquete de actualización, por lo que no se sabe con qué sistemas es compatible: %@</translation>
    </message>
    <message>
        <source>Package_NameTooLong</source>
        <translation>El nombre de la carpeta o del archivo del paquete es demasiado largo. Elija un nombre más corto o guarde el paquete en otra carpeta.</translation>
    </message>
    <message>
        <source>Package_NoFolder</source>
        <translation>La carpeta «%@» no existe o no se puede leer.</translation>
    </message>
    <message>
        <source>Package_NotInFolder</source>
        <translation>La carpeta «%@» no contiene ningún paquete de actualización (VYMBINDDATA).</translation>
    </message>
    <message>
        <source>Package_NotAFile</source>
        <translation>«%@» no es un archivo.</translation>
    </message>
    <message>
        <source>Package_NotReadable</source>
        <translation>No tiene permiso para leer «%@». Pídaselo a su propietario.</translation>
    </message>
    <message>
        <source>Package_NoMemory</source>
        <translation>No hay memoria suficiente para leer el paquete. Cierre otros programas e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Package_Damaged</source>
        <translation>«%@» no es un paquete de actualización o está dañado.</translation>
    </message>
    <message>
        <source>Package_NoDescription</source>
        <translation>El paquete no contiene ninguna descripción (VYMINFO.txt).</translation>
    </message>
    <message>
        <source>Package_LargeDescription</source>
        <translation>La descripción del paquete ocupa más de %u MiB.</translation>
    </message>
    <message>
        <source>Package_LongRow</source>
        <translation>La descripción del paquete contiene una línea de más de %u bytes.</translation>
    </message>
    <message>
        <source>Package_NoFirmware</source>
        <translation>La descripción del paquete no menciona ningún firmware.</translation>
    </message>
    <message>
        <source>Package_ManyFirmware</source>
        <translation>La descripción del paquete contiene más de %u entradas de firmware.</translation>
    </message>
    <message>
        <source>Package_BadPort</source>
        <translation>El número de puerto del paquete no está entre 1 y 65535.</translation>
    </message>
    <message>
        <source>Package_ReadError</source>
        <translation>No se ha podido leer el paquete hasta el final o falta memoria.</translation>
    </message>
    <message>
        <source>Package_KeysUnreadable</source>
        <translation>No se pueden leer las claves de confianza de «%@». Consulte al administrador de este equipo.</translation>
    </message>
    <message>
        <source>Package_NoSignatureCheck</source>
        <translation>Este programa se compiló sin libsodium y no puede comprobar firmas. Consulte al administrador de este equipo.</translation>
    </message>
    <message>
        <source>Package_NotSigned</source>
        <translation>El paquete no está firmado: falta el archivo «%@».</translation>
    </message>
    <message>
        <source>Package_SignatureUnreadable</source>
        <translation>No se puede leer la firma «%@» del paquete.</translation>
    </message>
    <message>
        <source>Package_SignatureOld</source>
        <translation>La firma «%@» del paquete tiene un formato antiguo (se creó con la opción -l de minisign).</translation>
    </message>
    <message>
        <source>Package_SignatureForeign</source>
        <translation>La firma «%@» no procede de ninguna clave de confianza, o el paquete se modificó después de firmarlo.</translation>
    </message>
    <message>
        <source>Package_KeyUnreadable</source>
        <translation>%@ (ilegible)</translation>
    </message>
    <message>
        <source>Package_TrustedKeys</source>
        <translation>Este equipo solo acepta paquetes firmados con una clave de confianza: %@. Obtenga el paquete y su firma del fabricante.</translation>
    </message>
    <message>
        <source>Package_GetAgain</source>
        <translation>Obtenga de nuevo el paquete del fabricante.</translation>
    </message>
    <message>
        <source>Report_Save</source>
        <translation>Guardar informe…</translation>
    </message>
    <message>
        <source>Report_Saved</source>
        <translation>Se ha guardado el informe</translation>
    </message>
    <message>
        <source>Report_NotSaved</source>
        <translation>No se ha podido guardar el informe</translation>
    </message>
    <message>
        <source>Report_Masked</source>
        <translation>Es para quienes le ayuden. Los nombres de personas, equipos y archivos, las direcciones y los números de serie aparecen ocultos. Léalo antes de enviarlo.</translation>
    </message>
    <message>
        <source>Update_Description</source>
        <translation>La impresora se está actualizando</translation>
    </message>
    <message>
        <source>Update_Precaution</source>
        <translation>Hasta que termine la actualización:
• No apague la impresora ni desconecte sus cables.
• No imprima, no escanee ni envíe faxes con ella.
• No apague este equipo.
La actualización puede durar varios minutos y la barra puede quedarse parada un rato.</translation>
    </message>
    <message>
        <source>Update_CloseRefused</source>
        <translation>La ventana sigue abierta: una actualización interrumpida puede dejar inservible la impresora. Se cierra sola cuando termina la actualización.</translation>
    </message>
    <message>
        <source>Update_Quiet</source>
        <translation>Nada ha cambiado desde las %@. Puede ser normal: algunas impresoras escriben durante muchos minutos sin dar señales. No apague la impresora ni desconecte ningún cable.</translation>
    </message>
    <message>
        <source>Update_ProgressName</source>
        <translation>Progreso de la actualización</translation>
    </message>
    <message>
        <source>State_Connection</source>
        <translation>Conectando con la impresora…</translation>
    </message>
    <message>
        <source>State_CheckVersion</source>
        <translation>Comprobando la versión instalada…</translation>
    </message>
    <message>
        <source>State_CheckVersion_Plural</source>
        <translation>Comprobando la versión instalada del firmware n.º %u…</translation>
    </message>
    <message>
        <source>State_PrepUpdate</source>
        <translation>Enviando el firmware…</translation>
    </message>
    <message>
        <source>State_PrepUpdate_Plural</source>
        <translation>Enviando el firmware n.º %u…</translation>
    </message>
    <message>
        <source>State_WriteUpdate</source>
        <translation>Escribiendo el firmware…</translation>
    </message>
    <message>
        <source>State_WriteUpdate_Plural</source>
        <translation>Escribiendo el firmware n.º %u…</translation>
    </message>
    <message>
        <source>State_Updated</source>
        <translation>Firmware actualizado</translation>
    </message>
    <message>
        <source>NormalEndTitle</source>
        <translation>La impresora se ha actualizado</translation>
    </message>
    <message>
        <source>NormalEnd_AutoMes</source>
        <translation>La impresora se reinicia sola. Déjela encendida hasta que su pantalla indique que está lista.</translation>
    </message>
    <message>
        <source>NormalEnd_ManualMes</source>
        <translation>Cuando la pantalla de la impresora indique que la actualización ha terminado, apáguela y vuelva a encenderla.</translation>
    </message>
    <message>
        <source>NoUpdateEndTitle</source>
        <translation>No hay nada que actualizar</translation>
    </message>
    <message>
        <source>NoUpdateEnd_AutoMes</source>
        <translation>La impresora no necesita nada de este paquete y no se ha enviado ningún firmware. Volverá a estar lista por sí sola.</translation>
    </message>
    <message>
        <source>NoUpdateEnd_ManualMes</source>
        <translation>La impresora no necesita nada de este paquete y no se ha enviado ningún firmware. Si su pantalla aún muestra el modo de actualización, apáguela y vuelva a encenderla.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorTitle</source>
        <translation>La impresora ha comunicado un error</translation>
    </message>
    <message>
        <source>Error_DeviceErrorMes</source>
        <translation>La actualización se ha detenido.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorNext</source>
        <translation>Mire la pantalla de la impresora, corrija allí el error y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorTitle</source>
        <translation>Los datos han llegado dañados</translation>
    </message>
    <message>
        <source>Error_ConnectErrorMes</source>
        <translation>Los datos intercambiados con la impresora se han dañado durante la transmisión y la actualización se ha detenido.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorNext</source>
        <translation>Compruebe los cables y la red y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyTitle</source>
        <translation>La impresora está ocupada</translation>
    </message>
    <message>
        <source>Error_DeviceBusyMes</source>
        <translation>Ahora no se puede actualizar la impresora.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyNext</source>
        <translation>Espere hasta que haya terminado todos los trabajos y su pantalla indique que está lista, y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningMes</source>
        <translation>En este equipo ya hay otra actualización de esta impresora en curso.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningNext</source>
        <translation>Espere hasta que termine y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_FaxTitle</source>
        <translation>El fax de la impresora está en uso</translation>
    </message>
    <message>
        <source>Error_FaxMes</source>
        <translation>La impresora está enviando o recibiendo un fax.</translation>
    </message>
    <message>
        <source>Error_FaxNext</source>
        <translation>Espere hasta que termine y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_PoweredOffTitle</source>
        <translation>Sin conexión con la impresora</translation>
    </message>
    <message>
        <source>Error_PoweredOffMes</source>
        <translation>No se ha podido establecer la conexión, se ha perdido o una respuesta ha llegado incompleta.</translation>
    </message>
    <message>
        <source>Error_PoweredOffNext</source>
        <translation>Compruebe que la impresora esté encendida, que el cable o la red funcionen, que su dirección sea correcta y que nada bloquee la conexión, y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchTitle</source>
        <translation>La impresora es de otro modelo</translation>
    </message>
    <message>
        <source>Error_ModelMismatchMes</source>
        <translation>Este paquete no es para el modelo de la impresora y la actualización se ha detenido.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchNext</source>
        <translation>Obtenga el paquete de su modelo, o empiece de nuevo y elija la impresora a la que está destinado este paquete.</translation>
    </message>
    <message>
        <source>Error_FirmReadTitle</source>
        <translation>No se ha podido leer el firmware</translation>
    </message>
    <message>
        <source>Error_FirmReadMes</source>
        <translation>El paquete de actualización está dañado o ya no se encuentra en su sitio.</translation>
    </message>
    <message>
        <source>Error_FirmReadNext</source>
        <translation>Obtenga de nuevo el paquete y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_SystemTitle</source>
        <translation>La actualización no ha podido continuar</translation>
    </message>
    <message>
        <source>Error_SystemMes</source>
        <translation>Algo ha fallado en este equipo, o la impresora ha dado muy poca información sobre sí misma.</translation>
    </message>
    <message>
        <source>Error_SystemNext</source>
        <translation>Vuelva a iniciar la actualización. Si eso no lo resuelve, reinicie antes este equipo.</translation>
    </message>
    <message>
        <source>Error_CompatibleTitle</source>
        <translation>La versión instalada es demasiado antigua</translation>
    </message>
    <message>
        <source>Error_CompatibleMes</source>
        <translation>Este paquete no puede actualizar la versión instalada en la impresora.</translation>
    </message>
    <message>
        <source>Error_CompatibleNext</source>
        <translation>Instale primero un paquete anterior y después este.</translation>
    </message>
    <message>
        <source>Error_OtherTitle</source>
        <translation>La impresora no ha respondido como se esperaba</translation>
    </message>
    <message>
        <source>Error_OtherMes</source>
        <translation>La impresora no ha respondido a tiempo, o su respuesta estaba incompleta o no se podía utilizar, y la actualización se ha detenido.</translation>
    </message>
    <message>
        <source>Error_OtherNext</source>
        <translation>Compruebe que la impresora esté lista y siga conectada, y vuelva a iniciar la actualización.</translation>
    </message>
    <message>
        <source>Error_BytesSent</source>
        <translation>No apague la impresora: espere hasta que su pantalla indique que está lista. Si sigue en el modo de actualización, inicie de nuevo la actualización.</translation>
    </message>
    <message>
        <source>Result_Confirmed</source>
        <translation>%@: enviado y confirmado por la impresora.</translation>
    </message>
    <message>
        <source>Result_Sent</source>
        <translation>%@: enviado, pero no confirmado por la impresora.</translation>
    </message>
    <message>
        <source>Result_Partly</source>
        <translation>%@: enviado solo en parte.</translation>
    </message>
    <message>
        <source>Result_NothingSent</source>
        <translation>No se ha enviado ningún firmware.</translation>
    </message>
    <message>
        <source>Check_Button</source>
        <translation>Comprobar la impresora ahora</translation>
    </message>
    <message>
        <source>Check_Waiting</source>
        <translation>Comprobando el firmware de la impresora…</translation>
    </message>
    <message>
        <source>Check_InstalledTitle</source>
        <translation>El nuevo firmware está instalado</translation>
    </message>
    <message>
        <source>Check_InstalledMes</source>
        <translation>La impresora indica las versiones que se le han enviado.</translation>
    </message>
    <message>
        <source>Check_DifferentTitle</source>
        <translation>El nuevo firmware no está instalado</translation>
    </message>
    <message>
        <source>Check_DifferentMes</source>
        <translation>La impresora indica una versión distinta de la que se le ha enviado.</translation>
    </message>
    <message>
        <source>Check_DifferentNext</source>
        <translation>Si todavía está ocupada, espere hasta que su pantalla indique que está lista y vuelva a comprobarla. Si no, inicie de nuevo la actualización.</translation>
    </message>
    <message>
        <source>Check_UnknownTitle</source>
        <translation>No se conoce la versión instalada</translation>
    </message>
    <message>
        <source>Check_UnknownMes</source>
        <translation>La impresora no ha indicado qué firmware tiene. Puede que se esté reiniciando, lo que puede durar varios minutos.</translation>
    </message>
    <message>
        <source>Check_UnknownNext</source>
        <translation>No apague la impresora: espere hasta que su pantalla indique que está lista y vuelva a comprobarla.</translation>
    </message>
    <message>
        <source>Details_Button</source>
        <translation>&amp;Detalles</translation>
    </message>
    <message>
        <source>Details_Printer</source>
        <translation>Impresora: %@</translation>
    </message>
    <message>
        <source>Details_Package</source>
        <translation>Paquete: %@</translation>
    </message>
    <message>
        <source>Details_Result</source>
        <translation>Resultado: %@</translation>
    </message>
    <message>
        <source>Details_Process</source>
        <translation>Proceso de la otra actualización: %@</translation>
    </message>
    <message>
        <source>Details_Log</source>
        <translation>Registro de esta ejecución: %@</translation>
    </message>
    <message>
        <source>Icon_Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>Icon_Caution</source>
        <translation>Precaución</translation>
    </message>
    <message>
        <source>Step_Opening</source>
        <translation>Paquete</translation>
    </message>
    <message>
        <source>Step_Preparation</source>
        <translation>Preparación</translation>
    </message>
    <message>
        <source>Step_Device</source>
        <translation>Impresora</translation>
    </message>
    <message>
        <source>Step_Confirmation</source>
        <translation>Confirmación</translation>
    </message>
    <message>
        <source>Step_Update</source>
        <translation>Actualización</translation>
    </message>
</context>
</TS>
