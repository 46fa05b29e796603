// SPDX-License-Identifier: Apache-2.0
// The reading loop, and the walk over the directory of the base name.
#include "client/modelfile.h"

#include "cadimport/creator.h"
#include "cadimport/recordreader.h"
#include "client/librarytext.h"
#include "zelbasictypes/files/pathoperations.h"
#include "zelbasictypes/files/zeldiriterator.h"
#include "zelbasictypes/files/zelpath.h"
#include "zelbasictypes/text/zeltranslator.h"

namespace {

KorString modelPath(const KorString& outputBaseName) {
    return zelTranslate("%1.direct", outputBaseName);
}

} // namespace

bool openModelFile(const KorString& outputBaseName, QFile& file) {
    const KorString path = modelPath(outputBaseName);
    return isFile(path) && openForReading(path, file);
}

void readMessages(QFile& file, CADImport::Creator& creator) {
    CADImport::RecordReader records(file);
    while (!records.atEnd()) {
        const CADImport::Message* message = records.look();
        if (message && message->isValid()) message->accept(creator);
    }
}

void removeModelFile(const KorString& outputBaseName, QFile& file) {
    file.close();
    removeFile(modelPath(outputBaseName));
}

void collectExportedFiles(const KorString& outputBaseName, bool decimalComma,
                          std::list<KorString>& exportedFiles) {
    const ZelPath base(outputBaseName);
    KorString directory;
    KorString prefix;
    parentDirectory(base, directory);
    fileName(base, prefix, false);
    const KorString wanted = decimalComma ? KorString::borrow(u"sat") : KorString::borrow(u"igs");

    ZelDirIterator entries(&directory, true);
    for (entries.begin(); !entries.isDone(); entries.next()) {
        const ZelDirEntry& entry = entries.entry();
        if (!entry.isRegular()) continue;
        KorString ending;
        KorString name;
        extension(entry.path(), ending);
        fileName(entry.path(), name, false);
        if (ending == wanted && name.startsWith(prefix, prefix.length())) {
            exportedFiles.push_back(entry.path());
        }
    }
}
