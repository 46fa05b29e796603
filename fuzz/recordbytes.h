// SPDX-License-Identifier: Apache-2.0
// A record to bytes and back.
#pragma once

#include "fuzz/require.h"
#include "host/modelling/recordfile.h"

#include <QBuffer>

inline QByteArray written(const host::ImportRecord& record) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    require(host::writeRecord(buffer, record), "not written");
    return buffer.data();
}

inline std::optional<host::ImportRecord> readBack(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return host::readRecord(buffer);
}
