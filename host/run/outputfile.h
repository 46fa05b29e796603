// SPDX-License-Identifier: Apache-2.0
// Files beside the model: whether they can be written, asked before the work, and written whole.
#pragma once

#include <QString>

#include <fstream>
#include <string>

namespace host {

/// Of a file that is put into place when it is whole, or, `isDeviceFine`, of anything that can be
/// written to. In a few words why not; empty when it can be written. Leaves everything as it is.
QString writeProblem(const QString& file, bool isDeviceFine);

/// False when it can't be written, and then a file that was there is still as it was.
bool writeWhole(const QString& file, const std::string& text);

/// A stream whose file is made, or cut, by the first that is written.
class LateFile : public std::ostream {
public:
    explicit LateFile(const QString& file) : std::ostream(nullptr), buffer_(file) {
        rdbuf(&buffer_);
    }

private:
    class Buffer : public std::filebuf {
    public:
        explicit Buffer(const QString& file) : file_(file) {}

    protected:
        int_type overflow(int_type unit) override;
        std::streamsize xsputn(const char* text, std::streamsize length) override;

    private:
        bool isReady();
        const QString file_;
    };

    Buffer buffer_;
};

} // namespace host
