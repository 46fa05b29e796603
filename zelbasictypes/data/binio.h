// SPDX-License-Identifier: Apache-2.0
/// @file
/// All of BinIO: typed big-endian streams, their files, and the word that objects are known by.
#pragma once

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/bininputfile.h"
#include "zelbasictypes/data/binio_magic.h"
#include "zelbasictypes/data/binio_scrambler.h"
#include "zelbasictypes/data/binmemory.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/data/binoutputfile.h"
