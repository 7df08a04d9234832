// SPDX-License-Identifier: MIT
// Macros for clang's thread-safety attributes, which say what each lock guards. Empty for other
// compilers.
#pragma once

#if defined(__clang__)
#define VYM_ATTRIBUTE(x) __attribute__((x))
#else
#define VYM_ATTRIBUTE(x)
#endif

#define VYM_CAPABILITY(name) VYM_ATTRIBUTE(capability(name))
#define VYM_SCOPED_CAPABILITY VYM_ATTRIBUTE(scoped_lockable)
#define VYM_GUARDED_BY(lock) VYM_ATTRIBUTE(guarded_by(lock))
#define VYM_REQUIRES(...) VYM_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define VYM_ACQUIRE(...) VYM_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define VYM_RELEASE(...) VYM_ATTRIBUTE(release_capability(__VA_ARGS__))
