// SPDX-License-Identifier: Apache-2.0
/// @file
/// The definitions of MessageOf, for the sources that instantiate it for their own classes.
#pragma once

#include "cadimport/message.h"
#include "cadimport/wire.h"

namespace CADImport {

template <class T> void MessageOf<T>::accept(BaseVisitor& visitor) const {
    acceptAs(static_cast<const T&>(*this), visitor);
}

template <class T> void MessageOf<T>::read(QDataStream& stream) {
    WireReader wire(stream);
    T::fields(wire, static_cast<T&>(*this));
}

template <class T> void MessageOf<T>::write(QDataStream& stream) const {
    WireWriter wire(stream);
    T::fields(wire, static_cast<const T&>(*this));
}

template <class T> void MessageOf<T>::dumpOpening(QTextStream& text) const {
    text << "<" << T::wireName;
    if constexpr (requires(const T& message) { message.identifier; }) {
        text << " identifier=\"" << static_cast<const T*>(this)->identifier << "\"";
    }
    text << ">" << Qt::endl;
}

template <class T> void MessageOf<T>::dump(QTextStream& text) const {
    const T& self = static_cast<const T&>(*this);
    self.dumpOpening(text);
    self.dumpFields(text);
    text << "</" << T::wireName << ">" << Qt::endl;
}

} // namespace CADImport
