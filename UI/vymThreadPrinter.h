// SPDX-License-Identifier: MIT
// A flat function for the update worker, apart from those of vym_etc: what its printer says about
// itself, for a program that names the printer.
//
// Threads: any, while the worker exists.
#pragma once
#include <string>

// The model that the printer says it is. False, and an empty text, if the printer was not queried,
// if memory runs out, and for a null worker.
bool vymThread_GetPrinterModel(void* worker, std::string& model);
