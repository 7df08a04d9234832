// SPDX-License-Identifier: MIT
#include "CLI/HelpText.h"

const std::string_view kHelpText =
    R"(Updates the firmware of a printer, on the network or on USB, from an update package.

Examples:
  vymkit-cli info --package /media/stick
  vymkit-cli printers --all
  vymkit-cli check --printer office
  vymkit-cli update --address 192.0.2.7
  vymkit-cli update --uri "usb://Acme/P1?serial=12" --yes --json --deadline 1800
  vymkit-cli update --from list --canary 2 --max-failures 3 --results done.jsonl --yes

Usage: vymkit-cli COMMAND [OPTIONS]

Commands:
  info                 Show what the package holds and what it is for. Asks no printer.
  printers             List the printers that can be updated from the package.
  check                Ask the printer what an update would do, and why. Changes nothing.
  update               Update the printer's firmware.
  history [N]          List the updates of this computer, or show the log of the N-th.
  doctor               Say why an update would not work here, and what helps. Changes nothing.
  report               Write down what a helper needs to know, with names and numbers masked.

Which printer (check, update; several times for many printers; doctor, report: one at most):
      --printer NAME   A printer of the list, by its queue's identifier or by its name.
  -a, --address A      The printer's IPv4 address, or the name of its host.
      --uri PORT       The printer's port string: usb://..., lpd://... or net:...
      --from FILE      The printers of this list, one on each line; - is the standard input.
      --all            Every printer that the list of 'printers' has (check, update);
                       with its reason also every one that cannot be updated (printers).
      --port N         Connect to this TCP port instead of the package's.

Which firmware (check, update; otherwise all of the package):
      --only NAME      Only the firmware of this name (repeatable).
      --skip-same      Leave out what is installed in the package's version already.

Many printers in one call (check, update):
      --jobs N         So many at a time, 8 otherwise; each in a process of its own.
      --canary N       The first N alone; the rest only if all of them end well.
      --max-failures N After so many that did not end well, start no more.
      --deadline-each S
                       Stop each printer after S seconds; --deadline is for the whole call.
      --results FILE   Remember there how each printer ended; the next call with FILE skips
                       what ended well, and leaves alone what a person has to look at.

Options, before or after the command:
  -y, --yes            Start the update without a question (update).
  -p, --package FOLDER The folder that holds VYMBINDDATA, or the package's file itself;
                       otherwise this program's own folder.
      --sha256 HEX     Refuse any package but the one with this SHA-256.
      --key KEY        Refuse any package that is not signed with this key: a file
                       made by minisign, or the key itself.
      --deadline S     Stop after S seconds, as Ctrl-C does.
      --verify S       Afterwards wait up to S seconds for the printer, and compare its versions.
      --stall-limit S  Stop when the printer shows no progress for S seconds (update).
      --lock-timeout S Wait up to S seconds (otherwise 0) for another update of this printer
                       that runs on this computer (update).
      --json           Write JSON lines to the standard output, and nothing else; ask nothing.
  -q, --quiet          Show no progress.
  -v, --verbose        Write a line for each packet to the standard error output.
      --trace FILE     Write the same to FILE, with the bytes in hexadecimal.
  -o, --output FILE    Write the report to FILE instead of the standard output (report).
      --no-color       Use no colours; so does a non-empty NO_COLOR in the environment.
  -h, --help           Show this page.
      --version        Show the program's version.

A transfer to the printer is never cut off: Ctrl-C asks the run to stop and waits until the
printer can be left. Never switch the printer off while an update runs.

Exit codes:
  0    updated; for check: an update would send something; for printers: they are listed
  1    doctor: something would hinder an update; many printers: one failed or was left alone
  2    nothing to update
  3    with --verify: updated, but the printer did not come back to confirm it
  4    with --verify: updated, but the printer came back with another version
  11   the printer reports an error            18   a firmware image cannot be read
  12   data arrived damaged                    19   system error
  13   the printer is busy                     20   other error
  14   the printer is sending or receiving     22   the installed version is too old
       a fax                                   64   wrong usage
  15   an answer cannot be understood          66   no usable package
  16   the connection was lost                 68   no such printer, or it cannot be updated
  17   the printer is another model            69   the print server cannot be asked
  130  stopped by the user, --deadline or --stall-limit
)";

std::string_view commandsText()
{
    const auto text = kHelpText.substr(kHelpText.find("Commands:\n"));
    return text.substr(0, text.find("\n\n"));
}
