<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Localizable</name>
    <message>
        <source>Morix Vymkit</source>
        <translation>Morix Vymkit</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>&amp;Oui</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>&amp;Non</translation>
    </message>
    <message>
        <source>Start_Description</source>
        <translation>Vymkit installe le micrologiciel de ce paquet dans votre imprimante. Il vérifie d’abord ce qui y est installé et n’envoie que les micrologiciels dont elle a besoin.</translation>
    </message>
    <message>
        <source>Start_DevNameTitle</source>
        <translation>Modèle d’imprimante</translation>
    </message>
    <message>
        <source>Start_FirmInfoTitle</source>
        <translation>Micrologiciels de ce paquet</translation>
    </message>
    <message>
        <source>Start_ListTypeTitle</source>
        <translation>Micrologiciel</translation>
    </message>
    <message>
        <source>Start_ListVerTitle</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Start_SignedWith</source>
        <translation>Signé avec %@.</translation>
    </message>
    <message>
        <source>Start_NoPackageTitle</source>
        <translation>Aucun paquet de mise à jour pour le moment</translation>
    </message>
    <message>
        <source>Start_NoPackage</source>
        <translation>Un paquet de mise à jour est un fichier fourni par le fabricant de votre imprimante. Il s’appelle généralement VYMBINDDATA ou se termine par .vymbind. Choisissez-le ici.</translation>
    </message>
    <message>
        <source>Start_ChoosePackage</source>
        <translation>Choisir un paquet…</translation>
    </message>
    <message>
        <source>Start_VersionTxt</source>
        <translation>Vymkit, version %@</translation>
    </message>
    <message>
        <source>Preference_Description</source>
        <translation>Avant de commencer</translation>
    </message>
    <message>
        <source>Preference_CheckPointTitle</source>
        <translation>Vérifiez les points suivants :</translation>
    </message>
    <message>
        <source>Preference_CheckPoint</source>
        <translation>• L’imprimante est allumée et ne signale aucune erreur.
• Elle est reliée à cet ordinateur par un câble USB, ou les deux sont sur le même réseau, et toutes les fiches sont bien enfoncées.
• Personne n’imprime, ne numérise ni n’envoie de télécopie avec elle avant la fin de la mise à jour.
• Ni l’imprimante ni cet ordinateur ne seront éteints ni privés de courant. Un ordinateur portable est branché sur le secteur.</translation>
    </message>
    <message>
        <source>Preference_DownLoadMode</source>
        <translation>Cette imprimante doit être mise manuellement en mode de mise à jour (mode de téléchargement). Faites-le maintenant, avant de continuer ; son manuel indique comment.</translation>
    </message>
    <message>
        <source>Device_Description</source>
        <translation>Choix de l’imprimante</translation>
    </message>
    <message>
        <source>Device_Comment</source>
        <translation>Choisissez l’imprimante à mettre à jour ou saisissez son adresse IP.</translation>
    </message>
    <message>
        <source>Device_Comment2</source>
        <translation>Choisissez l’imprimante à mettre à jour.</translation>
    </message>
    <message>
        <source>Device_SpecifyPrinteName</source>
        <translation>Une imprimante de la &amp;liste</translation>
    </message>
    <message>
        <source>Device_SpecifyIPAddress</source>
        <translation>L’imprimante à cette a&amp;dresse IP</translation>
    </message>
    <message>
        <source>Device_ListPrinterName</source>
        <translation>Imprimante</translation>
    </message>
    <message>
        <source>Device_ListPortName</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressTitle</source>
        <translation>Saisissez l’adresse IP de l’imprimante</translation>
    </message>
    <message>
        <source>Device_AlertInputAddressMes</source>
        <translation>0.0.0.0 n’est pas l’adresse d’une imprimante. Saisissez les quatre nombres de son adresse IP, par exemple 192.0.2.7. L’imprimante les affiche dans ses paramètres réseau.</translation>
    </message>
    <message>
        <source>USB Printer</source>
        <translation>Imprimante USB</translation>
    </message>
    <message>
        <source>Device_AddressName</source>
        <translation>Adresse IP de l’imprimante</translation>
    </message>
    <message>
        <source>Device_AddressCell</source>
        <translation>Adresse IP, nombre %u sur 4</translation>
    </message>
    <message>
        <source>Device_Searching</source>
        <translation>Recherche des imprimantes…</translation>
    </message>
    <message>
        <source>Device_Asking</source>
        <translation>Interrogation de %@…</translation>
    </message>
    <message>
        <source>Device_SearchAgain</source>
        <translation>Rechercher à nouveau (F5)</translation>
    </message>
    <message>
        <source>Device_Found</source>
        <translation>Imprimantes trouvées : %u</translation>
    </message>
    <message>
        <source>Device_NoPrinters</source>
        <translation>Aucune imprimante que ce paquet puisse mettre à jour n’a été trouvée. Si la vôtre est sur le réseau, saisissez son adresse IP. Si elle est reliée par USB, allumez-la, vérifiez le câble, puis relancez la recherche.</translation>
    </message>
    <message>
        <source>Device_NoPrinters2</source>
        <translation>Aucune imprimante que ce paquet puisse mettre à jour n’a été trouvée. Allumez l’imprimante, vérifiez sa connexion, assurez-vous qu’elle est installée sur cet ordinateur, puis relancez la recherche.</translation>
    </message>
    <message>
        <source>Device_Reasons</source>
        <translation>Imprimante absente de la liste ? (F1)</translation>
    </message>
    <message>
        <source>Device_WhyTitle</source>
        <translation>Imprimantes absentes de la liste</translation>
    </message>
    <message>
        <source>Device_WhyNothing</source>
        <translation>Cet ordinateur n’a pas d’autre file d’impression, et aucune autre imprimante n’y est reliée par USB.</translation>
    </message>
    <message>
        <source>Device_WhyNetwork</source>
        <translation>Vymkit n’explore pas le réseau. Si votre imprimante s’y trouve, saisissez son adresse IP ; l’imprimante l’affiche dans ses paramètres réseau.</translation>
    </message>
    <message>
        <source>Device_WhyServer</source>
        <translation>Les files d’impression n’ont pas pu être lues. Vérifiez que le service d’impression (CUPS) de cet ordinateur fonctionne, puis relancez la recherche.</translation>
    </message>
    <message>
        <source>Device_WhyNoModel</source>
        <translation>Sa file d’impression n’indique aucun modèle.</translation>
    </message>
    <message>
        <source>Device_WhyOtherDriver</source>
        <translation>Sa file d’impression utilise un pilote auquel ce paquet n’est pas destiné.</translation>
    </message>
    <message>
        <source>Device_WhyNoAddress</source>
        <translation>Sa file d’impression n’a pas d’adresse.</translation>
    </message>
    <message>
        <source>Device_WhyDriverAddress</source>
        <translation>Son adresse ne figure pas dans les paramètres de son pilote.</translation>
    </message>
    <message>
        <source>Device_WhyOtherConnection</source>
        <translation>Sa file d’impression utilise un type de connexion que Vymkit n’emploie pas pour les mises à jour.</translation>
    </message>
    <message>
        <source>Device_WhyNoSerial</source>
        <translation>Elle ne communique aucun numéro de série et ne peut donc pas être distinguée d’une autre.</translation>
    </message>
    <message>
        <source>Device_WhyDuplicate</source>
        <translation>C’est la même imprimante que %@.</translation>
    </message>
    <message>
        <source>Device_WhyNotPermitted</source>
        <translation>Elle est connectée, mais vous n’avez pas l’autorisation d’y accéder directement.</translation>
    </message>
    <message>
        <source>Device_WhyNoAnswer</source>
        <translation>Elle ne répond pas. Allumez-la, vérifiez son câble, assurez-vous qu’aucun autre programme ne l’utilise, puis relancez la recherche.</translation>
    </message>
    <message>
        <source>Device_WhyOtherModel</source>
        <translation>C’est un autre modèle : %@</translation>
    </message>
    <message>
        <source>Device_HelpAddress</source>
        <translation>S’il s’agit du modèle auquel ce paquet est destiné, saisissez plutôt son adresse IP.</translation>
    </message>
    <message>
        <source>Device_UseAddress</source>
        <translation>Utiliser %@</translation>
    </message>
    <message>
        <source>Device_HelpRule</source>
        <translation>Un administrateur peut l’autoriser : ajoutez cette ligne au fichier %@, puis débranchez et rebranchez le câble USB de l’imprimante.</translation>
    </message>
    <message>
        <source>Device_CopyLine</source>
        <translation>Copier la ligne</translation>
    </message>
    <message>
        <source>Device_Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Guide_Description</source>
        <translation>Prêt pour la mise à jour</translation>
    </message>
    <message>
        <source>Guide_Comment</source>
        <translation>Vérifiez qu’il s’agit bien de l’imprimante à mettre à jour.</translation>
    </message>
    <message>
        <source>Guide_TargetDeviceTitle</source>
        <translation>Imprimante</translation>
    </message>
    <message>
        <source>Guide_PortNameTitle</source>
        <translation>Connexion</translation>
    </message>
    <message>
        <source>Guide_StartUpdateCmt</source>
        <translation>Choisissez « Démarrer » pour lancer la mise à jour. Une fois commencée, elle ne peut plus être annulée.</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Title</source>
        <translation>Démarrer la mise à jour ?</translation>
    </message>
    <message>
        <source>Confirmation_Normal_Description</source>
        <translation>Seuls les micrologiciels de ce paquet qui conviennent à l’imprimante lui sont envoyés. Une fois commencée, la mise à jour ne peut plus être annulée. Jusqu’à ce qu’elle soit terminée, n’éteignez pas l’imprimante et n’imprimez pas.</translation>
    </message>
    <message>
        <source>Confirmation_CutOff</source>
        <translation>Une mise à jour précédente de cette imprimante a été interrompue (début : %@). L’imprimante n’en a peut-être reçu qu’une partie.</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Title</source>
        <translation>Démarrer la mise à jour, même vers une version plus ancienne ?</translation>
    </message>
    <message>
        <source>Confirmation_VerDown_Description</source>
        <translation>Ce paquet peut remplacer un micrologiciel plus récent de l’imprimante par un plus ancien. Une fois commencée, la mise à jour ne peut plus être annulée. Jusqu’à ce qu’elle soit terminée, n’éteignez pas l’imprimante et n’imprimez pas.</translation>
    </message>
    <message>
        <source>Cancel_MesTitle</source>
        <translation>Quitter sans mettre à jour ?</translation>
    </message>
    <message>
        <source>Cancel_Message</source>
        <translation>Rien n’a été envoyé à l’imprimante. Choisissez « Non » pour rester sur cette page.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Title</source>
        <translation>Ce système n’est pas pris en charge</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Mes</source>
        <translation>Ce paquet de mise à jour ne peut pas être utilisé avec la version du système d’exploitation de cet ordinateur. Utilisez-le sur un ordinateur dont la version est prise en charge, ou procurez-vous un paquet pour celui-ci. Rien n’a été envoyé à une imprimante.</translation>
    </message>
    <message>
        <source>VYM_UnSupportOS_Package</source>
        <translation>Le paquet de mise à jour ne peut pas être utilisé ; les systèmes qu’il prend en charge ne sont donc pas connus : %@</translation>
    </message>
    <message>
        <source>Package_NameTooLong</source>
        <translation>Le nom du dossier ou du fichier du paquet est trop long. Choisissez un nom plus court ou placez le paquet dans un autre dossier.</translation>
    </message>
    <message>
        <source>Package_NoFolder</source>
        <translation>Le dossier « %@ » n’existe pas ou ne peut pas être lu.</translation>
    </message>
    <message>
        <source>Package_NotInFolder</source>
        <translation>Le dossier « %@ » ne contient aucun paquet de mise à jour (VYMBINDDATA).</translation>
    </message>
    <message>
        <source>Package_NotAFile</source>
        <translation>« %@ » n’est pas un fichier.</translation>
    </message>
    <message>
        <source>Package_NotReadable</source>
        <translation>Vous n’avez pas l’autorisation de lire « %@ ». Demandez-la à son propriétaire.</translation>
    </message>
    <message>
        <source>Package_NoMemory</source>
        <translation>La mémoire disponible ne suffit pas pour lire le paquet. Fermez d’autres programmes, puis réessayez.</translation>
    </message>
    <message>
        <source>Package_Damaged</source>
        <translation>« %@ » n’est pas un paquet de mise à jour ou est endommagé.</translation>
    </message>
    <message>
        <source>Package_NoDescription</source>
        <translation>Le paquet ne contient aucune description (VYMINFO.txt).</translation>
    </message>
    <message>
        <source>Package_LargeDescription</source>
        <translation>La description du paquet dépasse %u Mio.</translation>
    </message>
    <message>
        <source>Package_LongRow</source>
        <translation>La description du paquet contient une ligne de plus de %u octets.</translation>
    </message>
    <message>
        <source>Package_NoFirmware</source>
        <translation>La description du paquet ne mentionne aucun micrologiciel.</translation>
    </message>
    <message>
        <source>Package_ManyFirmware</source>
        <translation>La description du paquet mentionne plus de %u micrologiciels.</translation>
    </message>
    <message>
        <source>Package_BadPort</source>
        <translation>Le numéro de port indiqué dans le paquet n’est pas compris entre 1 et 65535.</translation>
    </message>
    <message>
        <source>Package_ReadError</source>
        <translation>Le paquet n’a pas pu être lu jusqu’au bout, ou la mémoire est insuffisante.</translation>
    </message>
    <message>
        <source>Package_KeysUnreadable</source>
        <translation>Les clés de confiance du dossier « %@ » ne peuvent pas être lues. Adressez-vous à l’administrateur de cet ordinateur.</translation>
    </message>
    <message>
        <source>Package_NoSignatureCheck</source>
        <translation>Ce programme a été compilé sans libsodium et ne peut pas vérifier les signatures. Adressez-vous à l’administrateur de cet ordinateur.</translation>
    </message>
    <message>
        <source>Package_NotSigned</source>
        <translation>Le paquet n’est pas signé : le fichier « %@ » est absent.</translation>
    </message>
    <message>
        <source>Package_SignatureUnreadable</source>
        <translation>La signature « %@ » du paquet ne peut pas être lue.</translation>
    </message>
    <message>
        <source>Package_SignatureOld</source>
        <translation>La signature « %@ » du paquet est dans un ancien format (créée avec l’option -l de minisign).</translation>
    </message>
    <message>
        <source>Package_SignatureForeign</source>
        <translation>La signature « %@ » ne provient d’aucune clé de confiance, ou le paquet a été modifié après avoir été signé.</translation>
    </message>
    <message>
        <source>Package_KeyUnreadable</source>
        <translation>%@ (illisible)</translation>
    </message>
    <message>
        <source>Package_TrustedKeys</source>
        <translation>Cet ordinateur n’accepte que les paquets signés avec une clé de confiance : %@. Procurez-vous le paquet et sa signature auprès du fabricant.</translation>
    </message>
    <message>
        <source>Package_GetAgain</source>
        <translation>Procurez-vous un nouvel exemplaire du paquet auprès du fabricant.</translation>
    </message>
    <message>
        <source>Report_Save</source>
        <translation>Enregistrer un rapport…</translation>
    </message>
    <message>
        <source>Report_Saved</source>
        <translation>Le rapport a été enregistré</translation>
    </message>
    <message>
        <source>Report_NotSaved</source>
        <translation>Le rapport n’a pas pu être enregistré</translation>
    </message>
    <message>
        <source>Report_Masked</source>
        <translation>Il est destiné aux personnes qui vous aident. Les noms de personnes, d’ordinateurs et de fichiers, les adresses et les numéros de série y sont masqués. Lisez-le avant de le transmettre.</translation>
    </message>
    <message>
        <source>Update_Description</source>
        <translation>Mise à jour de l’imprimante en cours</translation>
    </message>
    <message>
        <source>Update_Precaution</source>
        <translation>Jusqu’à la fin de la mise à jour :
• N’éteignez pas l’imprimante et ne débranchez pas ses câbles.
• N’imprimez pas, ne numérisez pas et n’envoyez pas de télécopie avec elle.
• N’éteignez pas cet ordinateur.
La mise à jour peut durer plusieurs minutes, et la barre peut rester immobile un moment.</translation>
    </message>
    <message>
        <source>Update_CloseRefused</source>
        <translation>La fenêtre reste ouverte : une mise à jour interrompue peut rendre l’imprimante inutilisable. La fenêtre se fermera d’elle-même à la fin de la mise à jour.</translation>
    </message>
    <message>
        <source>Update_Quiet</source>
        <translation>Rien n’a changé depuis %@. Cela peut être normal : certaines imprimantes écrivent pendant de longues minutes sans aucun signe. N’éteignez pas l’imprimante et ne débranchez rien.</translation>
    </message>
    <message>
        <source>Update_ProgressName</source>
        <translation>Progression de la mise à jour</translation>
    </message>
    <message>
        <source>State_Connection</source>
        <translation>Connexion à l’imprimante…</translation>
    </message>
    <message>
        <source>State_CheckVersion</source>
        <translation>Vérification de la version installée…</translation>
    </message>
    <message>
        <source>State_CheckVersion_Plural</source>
        <translation>Vérification de la version installée du micrologiciel nº %u…</translation>
    </message>
    <message>
        <source>State_PrepUpdate</source>
        <translation>Envoi du micrologiciel…</translation>
    </message>
    <message>
        <source>State_PrepUpdate_Plural</source>
        <translation>Envoi du micrologiciel nº %u…</translation>
    </message>
    <message>
        <source>State_WriteUpdate</source>
        <translation>Écriture du micrologiciel…</translation>
    </message>
    <message>
        <source>State_WriteUpdate_Plural</source>
        <translation>Écriture du micrologiciel nº %u…</translation>
    </message>
    <message>
        <source>State_Updated</source>
        <translation>Micrologiciel mis à jour</translation>
    </message>
    <message>
        <source>NormalEndTitle</source>
        <translation>L’imprimante a été mise à jour</translation>
    </message>
    <message>
        <source>NormalEnd_AutoMes</source>
        <translation>L’imprimante redémarre d’elle-même. Laissez-la allumée jusqu’à ce que son écran indique qu’elle est prête.</translation>
    </message>
    <message>
        <source>NormalEnd_ManualMes</source>
        <translation>Quand l’écran de l’imprimante indique que la mise à jour est terminée, éteignez-la puis rallumez-la.</translation>
    </message>
    <message>
        <source>NoUpdateEndTitle</source>
        <translation>Aucune mise à jour nécessaire</translation>
    </message>
    <message>
        <source>NoUpdateEnd_AutoMes</source>
        <translation>L’imprimante n’a besoin de rien dans ce paquet, et aucun micrologiciel n’a été envoyé. Elle sera bientôt de nouveau prête, sans intervention de votre part.</translation>
    </message>
    <message>
        <source>NoUpdateEnd_ManualMes</source>
        <translation>L’imprimante n’a besoin de rien dans ce paquet, et aucun micrologiciel n’a été envoyé. Si son écran indique encore le mode de mise à jour, éteignez-la puis rallumez-la.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorTitle</source>
        <translation>L’imprimante signale une erreur</translation>
    </message>
    <message>
        <source>Error_DeviceErrorMes</source>
        <translation>La mise à jour a été arrêtée.</translation>
    </message>
    <message>
        <source>Error_DeviceErrorNext</source>
        <translation>Consultez l’écran de l’imprimante, corrigez l’erreur, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorTitle</source>
        <translation>Des données sont arrivées endommagées</translation>
    </message>
    <message>
        <source>Error_ConnectErrorMes</source>
        <translation>Les données échangées avec l’imprimante ont été altérées en chemin, et la mise à jour a été arrêtée.</translation>
    </message>
    <message>
        <source>Error_ConnectErrorNext</source>
        <translation>Vérifiez les câbles et le réseau, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyTitle</source>
        <translation>L’imprimante est occupée</translation>
    </message>
    <message>
        <source>Error_DeviceBusyMes</source>
        <translation>L’imprimante ne peut pas être mise à jour maintenant.</translation>
    </message>
    <message>
        <source>Error_DeviceBusyNext</source>
        <translation>Attendez qu’elle ait terminé tous ses travaux et que son écran indique qu’elle est prête, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningMes</source>
        <translation>Une autre mise à jour de cette imprimante est en cours sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Error_UpdateRunningNext</source>
        <translation>Attendez qu’elle soit terminée, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_FaxTitle</source>
        <translation>Le télécopieur de l’imprimante est en cours d’utilisation</translation>
    </message>
    <message>
        <source>Error_FaxMes</source>
        <translation>L’imprimante envoie ou reçoit une télécopie.</translation>
    </message>
    <message>
        <source>Error_FaxNext</source>
        <translation>Attendez qu’elle ait terminé, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_PoweredOffTitle</source>
        <translation>Pas de connexion à l’imprimante</translation>
    </message>
    <message>
        <source>Error_PoweredOffMes</source>
        <translation>La connexion n’a pas pu être établie ou a été perdue, ou une réponse n’est arrivée qu’en partie.</translation>
    </message>
    <message>
        <source>Error_PoweredOffNext</source>
        <translation>Vérifiez que l’imprimante est allumée, que son câble ou le réseau fonctionne, que son adresse est exacte et que rien ne bloque la connexion, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchTitle</source>
        <translation>L’imprimante est d’un autre modèle</translation>
    </message>
    <message>
        <source>Error_ModelMismatchMes</source>
        <translation>Ce paquet n’est pas destiné au modèle de l’imprimante, et la mise à jour a été arrêtée.</translation>
    </message>
    <message>
        <source>Error_ModelMismatchNext</source>
        <translation>Procurez-vous le paquet de son modèle, ou recommencez en choisissant l’imprimante à laquelle ce paquet est destiné.</translation>
    </message>
    <message>
        <source>Error_FirmReadTitle</source>
        <translation>Le micrologiciel n’a pas pu être lu</translation>
    </message>
    <message>
        <source>Error_FirmReadMes</source>
        <translation>Le paquet de mise à jour est endommagé ou ne se trouve plus à sa place.</translation>
    </message>
    <message>
        <source>Error_FirmReadNext</source>
        <translation>Procurez-vous un nouvel exemplaire de ce paquet, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_SystemTitle</source>
        <translation>La mise à jour n’a pas pu continuer</translation>
    </message>
    <message>
        <source>Error_SystemMes</source>
        <translation>Un problème est survenu sur cet ordinateur, ou l’imprimante a donné trop peu d’informations.</translation>
    </message>
    <message>
        <source>Error_SystemNext</source>
        <translation>Relancez la mise à jour. Si cela ne suffit pas, redémarrez d’abord cet ordinateur.</translation>
    </message>
    <message>
        <source>Error_CompatibleTitle</source>
        <translation>La version installée est trop ancienne</translation>
    </message>
    <message>
        <source>Error_CompatibleMes</source>
        <translation>Ce paquet ne peut pas mettre à jour la version installée dans l’imprimante.</translation>
    </message>
    <message>
        <source>Error_CompatibleNext</source>
        <translation>Installez d’abord un paquet plus ancien, puis celui-ci.</translation>
    </message>
    <message>
        <source>Error_OtherTitle</source>
        <translation>L’imprimante n’a pas répondu comme prévu</translation>
    </message>
    <message>
        <source>Error_OtherMes</source>
        <translation>L’imprimante n’a pas répondu à temps, ou sa réponse était incomplète ou inutilisable, et la mise à jour a été arrêtée.</translation>
    </message>
    <message>
        <source>Error_OtherNext</source>
        <translation>Vérifiez que l’imprimante est prête et toujours connectée, puis relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Error_BytesSent</source>
        <translation>N’éteignez pas l’imprimante : attendez que son écran indique qu’elle est prête. Si elle reste en mode de mise à jour, relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Result_Confirmed</source>
        <translation>%@ : envoyé et confirmé par l’imprimante.</translation>
    </message>
    <message>
        <source>Result_Sent</source>
        <translation>%@ : envoyé, mais pas confirmé par l’imprimante.</translation>
    </message>
    <message>
        <source>Result_Partly</source>
        <translation>%@ : envoyé en partie seulement.</translation>
    </message>
    <message>
        <source>Result_NothingSent</source>
        <translation>Aucun micrologiciel n’a été envoyé.</translation>
    </message>
    <message>
        <source>Check_Button</source>
        <translation>Vérifier l’imprimante maintenant</translation>
    </message>
    <message>
        <source>Check_Waiting</source>
        <translation>Vérification du micrologiciel de l’imprimante…</translation>
    </message>
    <message>
        <source>Check_InstalledTitle</source>
        <translation>Le nouveau micrologiciel est installé</translation>
    </message>
    <message>
        <source>Check_InstalledMes</source>
        <translation>L’imprimante indique les versions qui lui ont été envoyées.</translation>
    </message>
    <message>
        <source>Check_DifferentTitle</source>
        <translation>Le nouveau micrologiciel n’est pas installé</translation>
    </message>
    <message>
        <source>Check_DifferentMes</source>
        <translation>L’imprimante indique une autre version que celle qui lui a été envoyée.</translation>
    </message>
    <message>
        <source>Check_DifferentNext</source>
        <translation>Si elle est encore occupée, attendez que son écran indique qu’elle est prête, puis vérifiez à nouveau. Sinon, relancez la mise à jour.</translation>
    </message>
    <message>
        <source>Check_UnknownTitle</source>
        <translation>La version installée n’est pas connue</translation>
    </message>
    <message>
        <source>Check_UnknownMes</source>
        <translation>L’imprimante n’a pas indiqué quel micrologiciel elle contient. Elle est peut-être en train de redémarrer, ce qui peut prendre plusieurs minutes.</translation>
    </message>
    <message>
        <source>Check_UnknownNext</source>
        <translation>N’éteignez pas l’imprimante : attendez que son écran indique qu’elle est prête, puis vérifiez à nouveau.</translation>
    </message>
    <message>
        <source>Details_Button</source>
        <translation>&amp;Détails</translation>
    </message>
    <message>
        <source>Details_Printer</source>
        <translation>Imprimante : %@</translation>
    </message>
    <message>
        <source>Details_Package</source>
        <translation>Paquet : %@</translation>
    </message>
    <message>
        <source>Details_Result</source>
        <translation>Résultat : %@</translation>
    </message>
    <message>
        <source>Details_Process</source>
        <translation>Processus de l’autre mise à jour : %@</translation>
    </message>
    <message>
        <source>Details_Log</source>
        <translation>Journal de cette mise à jour : %@</translation>
    </message>
    <message>
        <source>Icon_Note</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>Icon_Caution</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>Step_Opening</source>
        <translation>Paquet</translation>
    </message>
    <message>
        <source>Step_Preparation</source>
        <translation>Préparation</translation>
    </message>
    <message>
        <source>Step_Device</source>
        <translation>Imprimante</translation>
    </message>
    <message>
        <source>Step_Confirmation</source>
        <translation>Confirmation</translation>
    </message>
    <message>
        <source>Step_Update</source>
        <translation>Mise à jour</translation>
    </message>
</context>
</TS>
