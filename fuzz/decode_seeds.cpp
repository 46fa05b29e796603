// SPDX-License-Identifier: Apache-2.0
// Writes what decode_fuzz starts from into a directory: each message whole, cut, and with a count
// that lies.
#include "tests/cadimport/samplemessages.h"

#include <QDir>
#include <QFile>

#include <iostream>

namespace {

bool write(const QDir& directory, const QString& name, const QByteArray& file) {
    QFile output(directory.filePath(name));
    const QByteArray seed = QByteArray(1, '\0') + file;
    return output.open(QIODevice::WriteOnly) && output.write(seed) == seed.size();
}

bool writeForms(const QDir& directory, const CADImport::Message& message) {
    const QByteArray record = sample::record(message);
    QByteArray lying = record;
    const auto count = lying.lastIndexOf(QByteArray::fromHex("00000002"));
    if (count >= 0) lying.replace(static_cast<int>(count), 4, QByteArray::fromHex("7fffffff"));
    return write(directory, message.name(), record) &&
           write(directory, message.name() + "-cut", record.left(record.size() * 2 / 3)) &&
           write(directory, message.name() + "-count", lying);
}

} // namespace

int main(int argc, char** argv) {
    const QDir directory(argc == 2 ? argv[1] : "");
    if (argc != 2 || !directory.mkpath(".")) {
        std::cerr << "usage: decode_seeds DIRECTORY" << std::endl;
        return 2;
    }
    sample::Random random(12);
    QByteArray all;
    bool written = true;
    for (const auto& message : sample::oneOfEach(random, 2)) {
        written = writeForms(directory, *message) && written;
        all += sample::record(*message);
    }
    return written && write(directory, "all", all) ? 0 : 1;
}
