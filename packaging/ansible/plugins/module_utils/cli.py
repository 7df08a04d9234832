# Copyright (c) 2026 The Vymkit developers
# MIT license, SPDX-License-Identifier: MIT
"""Calls vymkit-cli and returns the last line of its JSON.

Knows the program's output, not what a module does with it. Never writes; never tries again.
"""
from __future__ import absolute_import, division, print_function

__metaclass__ = type

import json

# What every module takes; the documentation is in each module.
PROGRAM_ARGUMENTS = dict(
    package=dict(type='path'),
    deadline=dict(type='float'),
    vymkit_cli=dict(type='path', default='vymkit-cli'),
)
# From this state of a run on, firmware may have gone out.
STATE_SENDING = 3


def options_of(params, names):
    """The command line's options for these parameters, those that are not set left out."""
    words = []
    for name in names:
        value = params.get(name)
        if value is None or value is False:
            continue
        option = '--' + name.replace('_', '-')
        if value is True:
            words.append(option)
        elif isinstance(value, list):
            for item in value:
                words += [option, item]
        else:
            words += [option, str(value)]
    return words


def lines_of(output):
    """The objects of a JSON output; what is no object is left out."""
    found = []
    for line in output.splitlines():
        try:
            value = json.loads(line)
        except ValueError:
            continue
        if isinstance(value, dict):
            found.append(value)
    return found


def fail_without_result(module, lines, **facts):
    """For a program that was killed, or is another one."""
    may_have_sent = any((line.get('state') or 0) >= STATE_SENDING for line in lines)
    module.fail_json(
        changed=may_have_sent, name='no-result',
        next='check-printer' if may_have_sent else 'retry',
        msg='%s ended without a result, with the exit code %s. %s' % (
            module.params['vymkit_cli'], facts['exit_code'],
            'Firmware may have been sent: a person has to look at the printer.' if may_have_sent
            else 'No firmware was sent.'), **facts)


def run_cli(module, command, words):
    """Runs one command; fails the module if the program is missing or ends without a result."""
    program = module.params['vymkit_cli']
    if '/' not in program:
        program = module.get_bin_path(program, required=True)
    arguments = [program, command, '--json', '--quiet'] + words
    code, output, errors = module.run_command(arguments)
    lines = lines_of(output)
    if not lines or lines[-1].get('type') != 'result':
        fail_without_result(module, lines, exit_code=code, stderr=errors)
    return lines[-1]


def facts_of(result, names):
    """These keys of a result line, and its message where Ansible shows it."""
    facts = dict((name, result.get(name)) for name in names)
    facts['msg'] = result['message']
    return facts
