// SPDX-License-Identifier: Apache-2.0
/// @file
/// Includes the reader and the writer of data-model files.
#pragma once

#include "zelbasictypes/data/zelfileread.h"
#include "zelbasictypes/data/zelfilewrite.h"
#include "zelbasictypes/data/zelstored.h"
