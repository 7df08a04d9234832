// SPDX-License-Identifier: MIT
// A flat function for the update worker, apart from those of vym_etc: only a program that may leave
// a worker behind needs it.
//
// Threads: any, while the worker exists.
#pragma once

// True: the worker has sent no firmware and never will. Also requests a stop, without waiting for
// it. False if the first firmware is already being handled, and for a null worker.
[[nodiscard]] bool vymThread_RefuseFirmware(void* worker);
