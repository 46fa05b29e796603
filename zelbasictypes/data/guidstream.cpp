// SPDX-License-Identifier: Apache-2.0
// The stored form of an identifier.
#include "zelbasictypes/data/zelguid.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"

bool ZelGuid::write(BinOutput& stream) const {
    stream.write(&data1, 1);
    if (!stream.good()) return false;
    stream.write(&data2, 1);
    if (!stream.good()) return false;
    stream.write(&data3, 1);
    if (!stream.good()) return false;
    for (const std::uint8_t& byte : data4) stream.write(&byte, 1);
    return stream.good();
}

bool ZelGuid::read(BinInput& stream) {
    ZelGuid arrived;
    const bool whole = stream.read(&arrived.data1, 1) && stream.good() &&
                       stream.read(&arrived.data2, 1) && stream.good() &&
                       stream.read(&arrived.data3, 1) && stream.good() &&
                       stream.read(arrived.data4, 8) && stream.good();
    if (whole) *this = arrived;
    return whole;
}
