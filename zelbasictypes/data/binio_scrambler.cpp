// SPDX-License-Identifier: Apache-2.0
// The one scrambler of the process.
#include "zelbasictypes/data/binio_scrambler.h"

namespace binio {

BinIO_Scrambler* installedScrambler = nullptr;

} // namespace binio

void setScrambler(BinIO_Scrambler* scrambler) {
    if (scrambler == binio::installedScrambler) return;
    delete binio::installedScrambler;
    binio::installedScrambler = scrambler;
}
