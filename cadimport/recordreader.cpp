// SPDX-License-Identifier: Apache-2.0
// Wire names as they lie in the window, and the loop's one step.
#include "cadimport/recordreader.h"

#include "cadimport/messageregistry.h"
#include "cadimport/recordwindow.h"
#include "cadimport/wire.h"

#include <QByteArray>
#include <QtEndian>

#include <cstring>
#include <utility>
#include <vector>

namespace CADImport {
namespace {

QByteArray wireForm(const QString& name) {
    QByteArray bytes(name.size() * 2, Qt::Uninitialized);
    qToBigEndian<quint16>(name.utf16(), name.size(), bytes.data());
    return bytes;
}

struct KnownClass {
    QByteArray wireName;
    MessageFactory factory = nullptr;
    std::unique_ptr<Message> kept{}; // for those who only look
};

/// The registry by the names' bytes on the wire: a table of a power of two, at most
/// half full and probed in a row.
class WireNames {
public:
    explicit WireNames(const MessageRegistry& registry);

    qsizetype longest() const { return longest_; }
    KnownClass* find(WireBytes name);

private:
    std::size_t slot(WireBytes name) const;

    std::vector<KnownClass> entries_;
    qsizetype longest_ = 0;
};

WireNames::WireNames(const MessageRegistry& registry) {
    std::size_t size = 64;
    while (size < static_cast<std::size_t>(registry.size()) * 2) size *= 2;
    entries_.resize(size);
    for (auto entry = registry.begin(); entry != registry.end(); ++entry) {
        const QByteArray name = wireForm(entry.key());
        if (!entry.value()) continue;
        const WireBytes bytes{reinterpret_cast<const uchar*>(name.constData()), name.size()};
        std::size_t at = slot(bytes);
        while (entries_[at].factory) at = (at + 1) & (size - 1);
        entries_[at] = {name, entry.value(), nullptr};
        longest_ = qMax<qsizetype>(longest_, name.size());
    }
}

/// Names mostly differ in their last letters.
std::size_t WireNames::slot(WireBytes name) const {
    quint64 tail = 0;
    const auto used = qMin<qsizetype>(name.size, sizeof(tail));
    std::memcpy(&tail, name.data + name.size - used, static_cast<std::size_t>(used));
    const quint64 mixed = (tail ^ static_cast<quint64>(name.size)) * 0x9E3779B97F4A7C15u;
    return static_cast<std::size_t>(mixed >> 40) & (entries_.size() - 1);
}

KnownClass* WireNames::find(WireBytes name) {
    for (std::size_t at = slot(name); entries_[at].factory; at = (at + 1) & (entries_.size() - 1)) {
        const QByteArray& known = entries_[at].wireName;
        if (known.size() == name.size &&
            std::memcmp(known.constData(), name.data, static_cast<std::size_t>(name.size)) == 0) {
            return &entries_[at];
        }
    }
    return nullptr;
}

} // namespace

struct RecordReader::Private {
    explicit Private(QIODevice& device)
        : window(device), stream(&window), names(messageRegistry()) {
        stream.setVersion(streamVersion);
    }
    KnownClass* nextClass();

    RecordWindow window;
    QDataStream stream;
    WireNames names;
    KnownClass* spacious = nullptr; ///< the class whose kept object has more room than most need
};

/// Consumes the name. One that is null, of odd length or cut reads as the empty name, which stands
/// for nothing; of an odd one only the length is consumed.
KnownClass* RecordReader::Private::nextClass() {
    const WireBytes head = window.take(sizeof(quint32));
    CutBytes cut{head.data, head.data + head.size};
    const qint64 size = cut.next<quint32>();
    if (size % 2 != 0) return nullptr;
    if (size > names.longest()) {
        window.skip(size);
        return nullptr;
    }
    const WireBytes name = window.take(static_cast<qsizetype>(size));
    return name.size == size ? names.find(name) : nullptr;
}

RecordReader::RecordReader(QIODevice& device) : d(new Private(device)) {}
RecordReader::~RecordReader() = default;

bool RecordReader::atEnd() { return !d->window.hasBytes(); }

std::unique_ptr<Message> RecordReader::next() {
    const KnownClass* known = d->nextClass();
    std::unique_ptr<Message> message(known ? known->factory() : nullptr);
    if (message) message->read(d->stream);
    return message;
}

const Message* RecordReader::look() {
    if (d->spacious) std::exchange(d->spacious, nullptr)->kept.reset();
    KnownClass* known = d->nextClass();
    if (!known) return nullptr;
    if (!known->kept) known->kept.reset(known->factory());
    const qint64 start = d->window.consumed();
    if (known->kept) known->kept->read(d->stream);
    if (d->window.consumed() - start > RecordWindow::capacity) d->spacious = known;
    return known->kept.get();
}

qint64 RecordReader::position() const { return d->window.consumed(); }

bool RecordReader::ranOut() const { return d->window.ranOut(); }

} // namespace CADImport
