// SPDX-License-Identifier: Apache-2.0
// Strings as blocks of data-model files, and a string that has such a file to itself.
//
// Both classes write and read themselves through one reader and one writer that the process shares,
// which are attached to a stream for one call and start good each time.
#include "zelbasictypes/data/bininput.h"
#include "zelbasictypes/data/binoutput.h"
#include "zelbasictypes/data/zelblocktags.h"
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

namespace {

/// Made at first use and never destroyed, since strings of static objects may want it to the end.
template <class T> T& sharedByProcess() {
    static T* const shared = zelNew<T>();
    return *shared;
}

/// The shared reader or writer for one call; it forgets the stream behind it.
template <class T, class Stream> class Attached {
public:
    explicit Attached(Stream& stream) : user_(sharedByProcess<T>()) {
        user_.attach(nullptr);
        user_.attach(&stream);
    }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;
    ~Attached() { user_.attach(nullptr); }
    T* operator->() const { return &user_; }

private:
    T& user_;
};
using SharedReader = Attached<ZelFileRead, BinInput>;
using SharedWriter = Attached<ZelFileWrite, BinOutput>;

/// A terminated text of up to `length` units; null when no text can be that long, or less than one
/// unit of room is there. `take` fills the units and tells how many came.
template <class Unit, class Take>
zeltext::Buffer<Unit> filled(std::int64_t length, const Take& take) {
    if (length < 0 || length > zeltext::longestText<Unit>) return {};
    zeltext::Buffer<Unit> text = zeltext::makeRoom<Unit>(length);
    if (text.data) text.data[take(text.data, static_cast<std::uint64_t>(length))] = 0;
    return text;
}

} // namespace

bool KorCString::readBytes(BinInput& stream, std::int64_t length) {
    buffer.release();
    buffer = filled<char>(
        length, [&](char* to, std::uint64_t count) { return stream.readBytes(to, count); });
    return buffer.data;
}

bool KorCString::write(BinOutput& stream) const {
    SharedWriter(stream)->writeNarrowString(*this);
    return stream.good();
}

bool KorCString::read(BinInput& stream) {
    SharedReader(stream)->readNarrowString(*this);
    return stream.good();
}

bool KorString::write(BinOutput& stream) const {
    const SharedWriter writer(stream);
    writer->beginBlock(zelblock::wideText, 0);
    stream.write(c_str(), static_cast<std::uint64_t>(length()));
    writer->endBlock();
    return stream.good();
}

bool KorString::read(BinInput& stream) {
    const SharedReader reader(stream);
    const bool found = reader->expectBlock(zelblock::wideText);
    *this = KorString();
    if (found) {
        text = filled<char16_t>(reader->bytesLeftInBlock() / 2,
                                [&](char16_t* to, std::uint64_t count) -> std::uint64_t {
                                    return stream.read(to, count) ? count : 0;
                                });
    }
    reader->endBlock();
    return stream.good();
}

bool KorString::saveToFile(const KorString& path) const {
    ZelFileWrite writer;
    if (!writer.create(path)) return false;
    writer.writeWideString(*this);
    return writer.close();
}

bool KorString::loadFromFile(const KorString& path) {
    ZelFileRead reader;
    if (!reader.open(path)) return false;
    reader.readWideString(*this);
    return reader.close();
}
