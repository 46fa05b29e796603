// SPDX-License-Identifier: Apache-2.0
// Heads and lists of bit vectors in a stream.
#include "zelbasictypes/sets/setstream.h"

#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"

#include <algorithm>
#include <limits>

namespace zelsets {

void StreamHead::write(BinOutput& out) const {
    const auto number = static_cast<std::int32_t>(form);
    out.write(&words, 1);
    out.write(&maxBit, 1);
    out.write(&number, 1);
    out.write(&count, 1);
}

void StreamHead::read(BinInput& in) {
    std::int32_t number = 0;
    in.read(&words, 1);
    in.read(&maxBit, 1);
    in.read(&number, 1);
    in.read(&count, 1);
    form = static_cast<StreamForm>(number);
}

bool StreamHead::isSound() const {
    return words > 0 && words <= mostWords && maxBit >= 1 &&
           (form == StreamForm::words || form == StreamForm::list);
}

void ListWriter::flush() {
    out_.write(indices_, static_cast<std::uint64_t>(used_));
    used_ = 0;
}

bool ListReader::fill() {
    constexpr std::int32_t missing = std::numeric_limits<std::int32_t>::min();
    at_ = 0;
    used_ = std::clamp(left_, 0, room);
    std::fill_n(indices_, used_, missing);
    left_ -= used_;
    if (!in_.read(indices_, static_cast<std::uint64_t>(used_))) {
        used_ =
            static_cast<std::int32_t>(std::find(indices_, indices_ + used_, missing) - indices_);
        left_ = 0;
    }
    return used_ > 0;
}

} // namespace zelsets
