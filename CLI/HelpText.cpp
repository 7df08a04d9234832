#include "CLI/HelpText.h"

const std::string_view kHelpText =
    R"(Updates the firmware of a network printer from an update package.

Examples:
  vymkit-cli info --package /media/stick
  vymkit-cli check --address 192.0.2.7
  vymkit-cli update --address 192.0.2.7
  vymkit-cli update --address 192.0.2.7 --yes --json --deadline 1800

Usage: vymkit-cli COMMAND [OPTIONS]

Commands:
  info                 Show what the package holds and what it is for. Asks no printer.
  check                Ask the printer what an update would do, and why. Changes nothing.
  update               Update the printer's firmware.

Options, before or after the command:
  -a, --address A      The printer's IPv4 address (check, update).
  -y, --yes            Start the update without a question (update).
  -p, --package FOLDER The folder that holds VYMBINDDATA; otherwise this program's own folder.
      --deadline S     Stop after S seconds, as Ctrl-C does.
      --json           Write JSON lines to the standard output, and nothing else; ask nothing.
  -q, --quiet          Show no progress.
  -v, --verbose        Write debug texts to the standard error output.
      --no-color       Use no colours; so does a non-empty NO_COLOR in the environment.
  -h, --help           Show this page.
      --version        Show the program's version.

A transfer to the printer is never cut off: Ctrl-C asks the run to stop and waits until the
printer can be left. Never switch the printer off while an update runs.

Exit codes:
  0    updated; for check: an update would send something
  2    nothing to update
  11   the printer reports an error            17   the printer is another model
  12   data arrived damaged                    18   a firmware image cannot be read
  13   the printer is busy                     19   system error
  14   the printer is sending or receiving     20   other error
       a fax                                   22   the installed version is too old
  15   an answer cannot be understood          64   wrong usage
  16   the connection was lost                 66   no usable package
  130  stopped by the user or by --deadline
)";
