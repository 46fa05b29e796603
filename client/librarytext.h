// SPDX-License-Identifier: Apache-2.0
// The library's texts and files as Qt's.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <list>

/// Through the narrow form, as programs and their arguments go: what that form cannot hold is lost.
QString narrowText(const KorString& text);
QStringList narrowTexts(const std::list<KorString>& texts);

/// Unit by unit, so that nothing is lost.
KorString libraryText(const QString& text);

/// Opens a file under a path of the library for reading bytes; `file` closes it.
bool openForReading(const KorString& path, QFile& file);
/// The same for writing behind what the file holds; it is made when it isn't there.
bool openForAppending(const char16_t* path, QFile& file);
