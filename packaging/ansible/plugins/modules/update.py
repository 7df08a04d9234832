#!/usr/bin/python
# Copyright (c) 2026 The Vymkit developers
# MIT license, SPDX-License-Identifier: MIT
from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r'''
module: update
short_description: Updates the firmware of one printer
version_added: 1.0.0
description:
  - Checks what an update would send to the printer, and sends it if there is something to send.
  - Runs C(vymkit-cli) on the host that the task runs on. Printers run no Python, so that a task for
    a printer is delegated to a host that reaches it.
  - A transfer to a printer is never cut. Limit its time with I(deadline), not with the task keywords
    C(timeout) and C(async), which end the module and not the update.
author:
  - The Vymkit developers (@vymkit)
options:
  printer:
    description:
      - The printer's print queue on that host.
      - Exactly one of I(printer), I(address) and I(uri) is required.
    type: str
  address:
    description: The printer's IPv4 address, or the name of its host.
    type: str
  uri:
    description: The printer's port string, as C(vymkit-cli printers) shows it.
    type: str
  port:
    description: The TCP port in place of the package's.
    type: int
  package:
    description:
      - The folder that holds C(VYMBINDDATA), or the package's file, on the host that the task runs on.
      - Without it the package of that host's installation is taken.
    type: path
  sha256:
    description: Refuses any package but the one with this SHA-256.
    type: str
  key:
    description: Refuses any package that is not signed with this key (a file, or the key in Base64).
    type: str
  only:
    description: Handles only the firmware of these names. A name that the package lacks is an error.
    type: list
    elements: str
  skip_same:
    description:
      - Leaves out firmware that the printer has in the package's version already, also where the
        package's own rule would send it again.
      - Keep it set for a task that shall report no change when it is repeated.
    type: bool
    default: true
  expected_model:
    description: Refuses a printer that says it is another model. Compared exactly, before the update.
    type: str
  expected_serial:
    description:
      - Refuses a printer with another serial number. Compared exactly, before the update, with the one
        in the printer's port string.
      - Printers on the network report none, and are refused if this is set.
    type: str
  deadline:
    description: A limit in seconds for check and update together.
    type: float
  stall_limit:
    description: A limit in seconds for a wait in which the printer shows no progress.
    type: float
  verify:
    description:
      - After the update, waits up to so many seconds for the printer to come back, and compares
        versions. Not confirmed, or another version, is a failure.
    type: float
  vymkit_cli:
    description: The program.
    type: path
    default: vymkit-cli
requirements:
  - vymkit-cli 1.0.0 or newer on the host that the task runs on
attributes:
  check_mode:
    description: Runs C(vymkit-cli check), which sends no firmware, and predicts C(changed) from it.
    support: full
  diff_mode:
    description: Shows the versions of each firmware before and after.
    support: full
seealso:
  - module: vymkit.printers.printers_info
'''

EXAMPLES = r'''
- name: The printer has the firmware of the package
  vymkit.printers.update:
    address: "{{ inventory_hostname }}"
    package: /srv/firmware/vymprint
    sha256: 2e7d2c03a9507ae265ecf5b5356885a53393a2029d241394997265a1a25aefc6
    deadline: 1800
  delegate_to: "{{ site_runner }}"

- name: Only the main controller, of this very model, and confirmed by the printer
  vymkit.printers.update:
    address: 192.0.2.7
    package: /srv/firmware/vymprint
    key: /etc/vymkit/keys/maker.pub
    only: [MAIN]
    expected_model: Vymprint 200
    verify: 300
  delegate_to: localhost
'''

RETURN = r'''
msg:
  description: The program's own message.
  returned: always
  type: str
  sample: The printer at 192.0.2.7 has taken the update.
changed:
  description: Whether firmware was sent; in check mode, whether it would be. Also set in a failure.
  returned: always
  type: bool
name:
  description:
    - How it ended, C(updated), C(update-available) (check mode), C(nothing-to-update), or the name of
      an error.
    - Of the module's own, C(unexpected-model), C(unexpected-serial), C(no-result).
  returned: always
  type: str
  sample: updated
exit_code:
  description: The program's exit code; null where the module refused the printer.
  returned: always
  type: int
next:
  description: What to do next, C(none), C(retry), C(choose-other-package) or C(check-printer).
  returned: always
  type: str
  sample: none
address:
  description: The printer's address or port string, as it was connected to.
  returned: when the program ran to its end
  type: str
printer_name:
  description: The print queue that led to the printer.
  returned: when the program ran to its end
  type: str
printer_model:
  description: What the printer says it is.
  returned: when the program ran to its end
  type: str
firmware:
  description: Each firmware of the package, as in the program's JSON.
  returned: when the program ran to its end
  type: list
  elements: dict
verdict:
  description: With I(verify), C(verified), C(not-confirmed) or C(not-installed).
  returned: when the program ran to its end
  type: str
warning:
  description: That the package is not for the system of the host, or null.
  returned: when the program ran to its end
  type: str
firmware_bytes_sent:
  description: Whether firmware had gone out to the printer.
  returned: when the program ran to its end
  type: bool
seconds:
  description: How long the update took, or the check if there was no update.
  returned: when the program ran to its end
  type: float
'''

import time

from ansible.module_utils.basic import AnsibleModule
from ansible_collections.vymkit.printers.plugins.module_utils.cli import (
    PROGRAM_ARGUMENTS, facts_of, options_of, run_cli)

ARGUMENTS = dict(
    PROGRAM_ARGUMENTS,
    printer=dict(type='str'),
    address=dict(type='str'),
    uri=dict(type='str'),
    port=dict(type='int'),
    sha256=dict(type='str'),
    key=dict(type='str', no_log=False),
    only=dict(type='list', elements='str'),
    skip_same=dict(type='bool', default=True),
    expected_model=dict(type='str'),
    expected_serial=dict(type='str'),
    stall_limit=dict(type='float'),
    verify=dict(type='float'),
)
DESTINATIONS = ('printer', 'address', 'uri')
CHECK_OPTIONS = DESTINATIONS + ('port', 'package', 'sha256', 'key', 'only', 'skip_same')
UPDATE_OPTIONS = CHECK_OPTIONS + ('stall_limit', 'verify')
FACTS = ('name', 'exit_code', 'next', 'address', 'printer_name', 'printer_model', 'firmware',
         'verdict', 'warning', 'firmware_bytes_sent', 'seconds')
# A run whose time is used up by its check still says so by itself, as a run that was stopped.
LEAST_DEADLINE = 1.0


def serial_in(address):
    """The serial number in a port string: all that follows "serial="; None without one."""
    found = (address or '').partition('serial=')
    return found[2] or None


def refusal(params, check):
    """Why this is not the expected printer, as results of the module; None if it is."""
    found = dict(model=check.get('printer_model'), serial=serial_in(check.get('address')))
    for what, says in (('model', 'model'), ('serial', 'serial number')):
        expected = params['expected_' + what]
        if expected is None or expected == found[what]:
            continue
        reported = 'reports none' if found[what] is None else 'has %s' % found[what]
        return dict(
            name='unexpected-' + what, exit_code=None, next='retry',
            msg='The printer was expected to have the %s %s, and %s. No firmware was sent.' % (
                says, expected, reported))
    return None


def version_after(entry, ended_well, predicted):
    """The version after a run, as far as it is known."""
    installed = entry.get('installed_version') or 'unknown'
    if predicted:
        return entry['version'] if entry['decision'] == 'send' else installed
    if entry.get('installed_after'):
        return entry['installed_after']
    if not entry['sent']:
        return installed
    return entry['version'] if ended_well else 'unknown'


def versions(result, predicted):
    """The versions before and after, for --diff, of all firmware that the run was to look at."""
    before, after = dict(), dict()
    for entry in result['firmware']:
        if entry.get('reason') in ('not-listed', 'not-chosen'):
            continue
        before[entry['name']] = entry.get('installed_version') or 'unknown'
        after[entry['name']] = version_after(entry, result['exit_code'] == 0, predicted)
    header = result.get('printer_name') or result.get('address') or ''
    return dict(before=before, after=after, before_header=header, after_header=header)


def with_facts_of_check(result, check):
    """An update's result, with what only the check reads from the printer."""
    installed = dict((entry['number'], entry.get('installed_version')) for entry in check['firmware'])
    for entry in result['firmware']:
        entry['installed_version'] = entry.get('installed_version') or installed.get(entry['number'])
    result['printer_model'] = result.get('printer_model') or check.get('printer_model')
    return result


def deadline_words(module, started):
    deadline = module.params['deadline']
    if deadline is None:
        return []
    left = deadline - (time.time() - started)
    # The check has the whole time; a wrong value is left to the program, which has the words for it.
    return ['--deadline', str(left if left > LEAST_DEADLINE else min(deadline, LEAST_DEADLINE))]


def run(module):
    """The line that decides, and whether it is a prediction."""
    started = time.time()
    check = run_cli(module, 'check', options_of(module.params, CHECK_OPTIONS)
                    + deadline_words(module, started))
    if check['exit_code'] in (0, 2):
        refused = refusal(module.params, check)
        if refused is not None:
            module.fail_json(changed=False, **dict(facts_of(check, FACTS), **refused))
    if module.check_mode or check['name'] != 'update-available':
        return check, True
    update = run_cli(module, 'update', ['--yes'] + options_of(module.params, UPDATE_OPTIONS)
                     + deadline_words(module, started))
    return with_facts_of_check(update, check), False


def main():
    module = AnsibleModule(argument_spec=ARGUMENTS, supports_check_mode=True,
                           mutually_exclusive=[DESTINATIONS], required_one_of=[DESTINATIONS])
    result, predicted = run(module)
    facts = facts_of(result, FACTS)
    facts['changed'] = bool(result['name'] == 'update-available' if predicted
                            else result['firmware_bytes_sent'])
    facts['diff'] = versions(result, predicted)
    if result['exit_code'] in (0, 2):
        module.exit_json(**facts)
    module.fail_json(**facts)


if __name__ == '__main__':
    main()
