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

/// Opens a file under a path of the library for reading bytes; `file` closes it.
bool openForReading(const KorString& path, QFile& file);
