// SPDX-License-Identifier: MIT
// Runs slow work on another thread while the windows stay responsive.
#pragma once
#include <functional>

// Runs the work on a thread of its own and returns when it is done. Handles events meanwhile; their
// handlers must expect that the caller has not returned yet. Without a thread, runs the work here.
// The work must not be empty.
void doAside(const std::function<void()>& work);
