// SPDX-License-Identifier: Apache-2.0
/// @file
/// Data-model files, read and written.
#pragma once

#include "zelbasictypes/data/zelfileread.h"
#include "zelbasictypes/data/zelfilewrite.h"
#include "zelbasictypes/data/zelstored.h"
