// SPDX-License-Identifier: Apache-2.0
/// @file
/// Includes all of BinIO: typed big-endian streams, their files, and the magic words of objects.
#pragma once

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/bininputfile.h"
#include "zelbasictypes/data/binio_magic.h"
#include "zelbasictypes/data/binio_scrambler.h"
#include "zelbasictypes/data/binmemory.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/data/binoutputfile.h"
