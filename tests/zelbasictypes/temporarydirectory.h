// SPDX-License-Identifier: Apache-2.0
// A directory that goes with the test, seen through the standard library rather than our own.
#pragma once

#include "tests/support/variables.h"
#include "zelbasictypes/text/korstring.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

class TemporaryDirectory {
public:
    TemporaryDirectory()
        : root(testsupport::sharedWithDeathTests(
              "BRIX_TEST_DIRECTORY", (std::filesystem::temp_directory_path() /
                                      ("brix-test-" + std::to_string(std::random_device()())))
                                         .string())) {
        std::filesystem::create_directory(root);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory() { std::filesystem::remove_all(root); }

    /// In the library's normal form; `name` may have slashes.
    KorString path(const std::string& name = "") const {
        std::u16string text = at(name).u16string();
        for (char16_t& c : text) {
            if (c == u'/') c = u'\\';
        }
        while (text.back() == u'\\') text.pop_back();
        return KorString(text.c_str());
    }
    bool isEmpty() const { return std::filesystem::is_empty(root); }
    bool has(const std::string& name) const { return std::filesystem::exists(at(name)); }
    void makeDirectory(const std::string& name) const {
        std::filesystem::create_directories(at(name));
    }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(at(name), std::ios::binary) << content;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(at(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// `name` is UTF-8, whatever the system's narrow texts are.
    std::filesystem::path at(const std::string& name) const {
        return root / std::u8string(name.begin(), name.end());
    }

    const std::filesystem::path root;
};
