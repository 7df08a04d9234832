#!/usr/bin/python
# Copyright (c) 2026 The Vymkit developers
# MIT license, SPDX-License-Identifier: MIT
from __future__ import absolute_import, division, print_function

__metaclass__ = type

DOCUMENTATION = r'''
module: printers_info
short_description: Lists the printers that a host can update from a package
version_added: 1.0.0
description:
  - Lists print queues, and USB printers without a queue, of the host that the task runs on.
  - Printers on the network are sent nothing.
author:
  - The Vymkit developers (@vymkit)
options:
  package:
    description:
      - The folder that holds C(VYMBINDDATA), or the package's file, on the host that the task runs on.
      - Without it the package of that host's installation is taken.
    type: path
  all:
    description: Lists also printers that cannot be updated, with the reason.
    type: bool
    default: false
  deadline:
    description: A limit in seconds.
    type: float
  vymkit_cli:
    description: The program.
    type: path
    default: vymkit-cli
requirements:
  - vymkit-cli 1.0.0 or newer on the host that the task runs on
attributes:
  check_mode:
    description: The same as without it; nothing is changed.
    support: full
  diff_mode:
    description: There is no difference to show.
    support: none
seealso:
  - module: vymkit.printers.update
'''

EXAMPLES = r'''
- name: Which printers does this runner reach?
  vymkit.printers.printers_info:
    package: /srv/firmware/vymprint
    all: true
  register: found

- name: Why are some left out?
  ansible.builtin.debug:
    msg: "{{ item.name }} {{ item.explanation }}"
  loop: "{{ found.printers | rejectattr('reason', 'eq', 'candidate') }}"
'''

RETURN = r'''
printers:
  description:
    - One object for each printer, with C(name), C(identifier), C(address) (as I(uri) of
      M(vymkit.printers.update) takes it), C(connection), C(model), C(reason), C(explanation) and more.
    - Where the print server does not answer, the module fails, and this holds the printers on USB.
  returned: when the program ran to its end
  type: list
  elements: dict
msg:
  description: The program's own message.
  returned: always
  type: str
name:
  description: How it ended, C(printers-listed) or the name of an error.
  returned: always
  type: str
  sample: printers-listed
next:
  description: What to do next.
  returned: always
  type: str
exit_code:
  description: The program's exit code.
  returned: always
  type: int
'''

from ansible.module_utils.basic import AnsibleModule
from ansible_collections.vymkit.printers.plugins.module_utils.cli import (
    PROGRAM_ARGUMENTS, facts_of, options_of, run_cli)

ARGUMENTS = dict(PROGRAM_ARGUMENTS, all=dict(type='bool', default=False))


def main():
    module = AnsibleModule(argument_spec=ARGUMENTS, supports_check_mode=True)
    result = run_cli(module, 'printers', options_of(module.params, ('package', 'all', 'deadline')))
    facts = dict(facts_of(result, ('name', 'exit_code', 'next')), changed=False,
                 printers=result.get('printers') or [])
    if result['exit_code'] == 0:
        module.exit_json(**facts)
    module.fail_json(**facts)


if __name__ == '__main__':
    main()
