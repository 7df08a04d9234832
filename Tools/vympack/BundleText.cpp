// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleText.h"

namespace vympack {

namespace {

// The packages that the bare programs need on Debian 12; a test compares them with the dependencies
// of the Debian packages.
constexpr const char* kDebianLibraries =
    "libqt6widgets6 libqt6uitools6 libqt6svg6 libusb-1.0-0 libsodium23 libsystemd0 libcups2";

struct Language {
    const char* heading;
    const char* locales; // a pattern of the shell for the locales with this language
    const char* title; // before the model's name
    const char* libraries; // what the bare programs need
    const char* install; // of the Debian packages
    const char* connect;
    const char* wizard;
    const char* line; // without a display
    const char* care;
    const char* trouble;
};

constexpr Language kLanguages[] = {
    {"English", "*", "Firmware update for the printer ",
     "The programs run on Linux with Qt 6. Debian 12 needs these packages for them:",
     "Install the programs, once:",
     "Connect the printer to this computer or to the network, and switch it on.",
     "Open the wizard; it leads through the update:",
     "Without a display, with the printer's IP address instead of 192.0.2.7:",
     "Do not switch the printer off, and do not print, until the update has finished.",
     "If something does not work, this says why, and what helps:"},
    {"Deutsch", "de*", "Firmware-Aktualisierung für den Drucker ",
     "Die Programme laufen unter Linux mit Qt 6. Debian 12 braucht dafür diese Pakete:",
     "Installieren Sie einmalig die Programme:",
     "Verbinden Sie den Drucker mit diesem Computer oder mit dem Netzwerk und schalten Sie ihn "
     "ein.",
     "Öffnen Sie den Assistenten; er führt durch die Aktualisierung:",
     "Ohne Bildschirm, mit der IP-Adresse des Druckers statt 192.0.2.7:",
     "Schalten Sie den Drucker nicht aus und drucken Sie nicht, bis die Aktualisierung beendet "
     "ist.",
     "Wenn etwas nicht funktioniert, nennt dies den Grund und was hilft (auf Englisch):"},
    {"Español", "es*", "Actualización del firmware de la impresora ",
     "Los programas funcionan en Linux con Qt 6. En Debian 12 necesitan estos paquetes:",
     "Instale los programas, una sola vez:",
     "Conecte la impresora a este ordenador o a la red, y enciéndala.",
     "Abra el asistente, que le guía durante la actualización:",
     "Sin pantalla, con la dirección IP de la impresora en lugar de 192.0.2.7:",
     "Hasta que termine la actualización, no apague la impresora ni imprima.",
     "Si algo no funciona, esto indica la causa y el remedio (en inglés):"},
    {"Français", "fr*", "Mise à jour du micrologiciel de l’imprimante ",
     "Les programmes fonctionnent sous Linux avec Qt 6. Sous Debian 12, il leur faut ces paquets :",
     "Installez les programmes, une seule fois :",
     "Connectez l’imprimante à cet ordinateur ou au réseau, et allumez-la.",
     "Ouvrez l’assistant, qui vous guide pendant la mise à jour :",
     "Sans écran, avec l’adresse IP de l’imprimante à la place de 192.0.2.7 :",
     "Jusqu’à ce que la mise à jour soit terminée, n’éteignez pas l’imprimante et n’imprimez pas.",
     "Si quelque chose ne fonctionne pas, ceci indique pourquoi et comment y remédier (en anglais) "
     ":"},
    {"日本語", "ja*", "ファームウェアの更新：プリンター ",
     "プログラムは Qt 6 のある Linux で動作します。Debian 12 では次のパッケージが必要です：",
     "はじめに一度だけ、プログラムをインストールします：",
     "プリンターをこのコンピューターまたはネットワークに接続し、電源を入れます。",
     "ウィザードを開き、表示される手順に従って更新します：",
     "画面がない場合は、192.0.2.7 をプリンターの IP アドレスに置き換えて実行します：",
     "更新が終わるまで、プリンターの電源を切ったり、印刷したりしないでください。",
     "うまくいかない場合は、次のコマンドで原因と対処方法を確認できます（英語）："},
    {"简体中文", "zh*", "固件更新：打印机 ",
     "程序可在装有 Qt 6 的 Linux 上运行。在 Debian 12 上需要以下软件包：",
     "首先安装程序（只需一次）：", "将打印机连接到此计算机或网络，并打开打印机电源。",
     "打开向导，并按照提示完成更新：", "没有显示器时，请将 192.0.2.7 换成打印机的 IP 地址：",
     "更新完成之前，请勿关闭打印机电源，也不要打印。",
     "如果遇到问题，以下命令会说明原因和解决方法（英文）："},
};

// The command lines, which are the same in every language.
struct Lines {
    std::string install;
    std::string update;
    std::string doctor;
};

Lines linesOf(const BundleWords& words)
{
    if (words.debs.empty())
        return {std::string("sudo apt install ") + kDebianLibraries,
                "./vymkit-cli update --address 192.0.2.7", "./vymkit-cli doctor"};
    std::string install = "sudo apt install";
    for (const auto& deb : words.debs)
        install += " ./" + deb;
    return {install, "vymkit-cli update --package . --address 192.0.2.7",
            "vymkit-cli doctor --package ."};
}

std::string section(const Language& language, const BundleWords& words, const Lines& lines)
{
    const auto command = [](const std::string& line) { return "\n       " + line + "\n"; };
    const auto* const first = words.debs.empty() ? language.libraries : language.install;
    return "== " + std::string(language.heading) + "\n\n" + language.title + words.model + "\n\n1. "
        + first + command(lines.install) + "2. " + language.connect + "\n3. " + language.wizard
        + command("./start") + "   " + language.line + command(lines.update) + "4. " + language.care
        + "\n\n" + language.trouble + command(lines.doctor) + "\n";
}

// Chooses a section of the text by the locale. A terminal without UTF-8 gets the first, which is
// ASCII.
std::string languageCases()
{
    std::string cases;
    for (const auto& language : kLanguages) {
        if (&language != &kLanguages[0])
            cases += std::string("        ") + language.locales + "[uU][tT][fF]*) heading='"
                + language.heading + "' ;;\n";
    }
    return cases + "        *) heading='" + kLanguages[0].heading + "' ;;\n";
}

// The parts of the start script, for every shell.
constexpr const char* kBeginOfScript = R"sh(#!/bin/sh
# Opens the wizard on the update package in this folder; where that cannot be, shows what to do.
here=$(dirname -- "$(readlink -f -- "$0")")

how_to() {
    case ${LC_ALL:-${LC_MESSAGES:-${LANG:-C}}} in
)sh";

constexpr const char* kHowTo = R"sh(    esac
    awk -v heading="== $heading" '/^== /{shown = $0 == heading} shown' "$here/README.txt" >&2
}

)sh";

constexpr const char* kBareProgram = R"sh(program=$here/vymkit
if [ -e "$program" ] && [ ! -x "$program" ]; then
    echo "start: The programs cannot be run from here. Copy this folder to the computer's disk," >&2
    echo "start: open a terminal in it, and enter: chmod +x start vymkit vymkit-cli && ./start" >&2
    exit 126
fi
)sh";

constexpr const char* kInstalledProgram = "program=vymkit\n";

constexpr const char* kEndOfScript = R"sh(if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    how_to
    exit 69 # as the wizard ends without a display
fi
"$program" "$here/VYMBINDDATA"
code=$?
case $code in
    # No display, the display did not answer, or the program or one of its libraries is missing.
    69 | 134 | 127) how_to ;;
esac
exit $code
)sh";

} // namespace

std::string readMe(const BundleWords& words)
{
    const auto lines = linesOf(words);
    std::string text;
    for (const auto& language : kLanguages)
        text += section(language, words, lines);
    return text;
}

std::string startScript(const BundleWords& words)
{
    return kBeginOfScript + languageCases() + kHowTo
        + (words.debs.empty() ? kBareProgram : kInstalledProgram) + kEndOfScript;
}

} // namespace vympack
