// SPDX-License-Identifier: MIT
// Detection of another running instance of the program, through a lock file in the user's runtime folder.
#pragma once

#include <QLockFile>
#include <memory>

// The lock of this instance, or null when another instance holds it.
std::unique_ptr<QLockFile> lockSingleInstance();
