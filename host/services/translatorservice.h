// SPDX-License-Identifier: Apache-2.0
// The translator service: one language, from a text file, for all components.
#pragma once

#include "component/objects/iptr.h"
#include "component/objects/services/izeltranslatorservice.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <QString>

#include <map>
#include <string>

namespace host {

/// A key that the file doesn't have is its own text.
class FileTranslator : public ZelTrivialTranslator {
public:
    /// Reads a UTF-8 file with one key and its translation a line, a tab between them. In both, \n
    /// is a line feed, \t a tab and \\ a backslash. Lines without a tab and those that begin with
    /// "#" say nothing. False when the file can't be read.
    bool load(const QString& fileName);

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "FileTranslator"; }
    bool lookup(const char* key, KorString& out) override;

private:
    std::map<std::string, KorString, std::less<>> texts_;
};

class TranslatorService : public IZelTranslatorService {
public:
    /// Gives `translator`, which may be null, to every component.
    explicit TranslatorService(IZelTranslator* translator) : translator_(translator) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "TranslatorService"; }
    IZelTranslator* translatorFor(const ZelGuid* componentId) override;

private:
    IPtr<IZelTranslator> translator_;
};

} // namespace host
