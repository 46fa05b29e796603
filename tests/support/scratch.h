// SPDX-License-Identifier: Apache-2.0
// A directory that goes with the test, seen through the standard library rather than our own.
#pragma once

#include "tests/support/variables.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

/// Names are UTF-8, whatever the system's narrow texts are.
class Scratch {
public:
    Scratch()
        : root(testsupport::sharedWithDeathTests(
              "BRIX_TEST_DIRECTORY", (std::filesystem::temp_directory_path() /
                                      ("brix-test-" + std::to_string(std::random_device()())))
                                         .string())) {
        std::filesystem::create_directory(root);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() { std::filesystem::remove_all(root); }

    /// In the library's form; the name of a path below is taken as it is.
    std::u16string path(const std::u16string& name = u"") const {
        const std::u16string directory = backslashed(root.u16string());
        return name.empty() ? directory : directory + u'\\' + name;
    }
    std::filesystem::path at(const std::string& name) const {
        return root / std::u8string(name.begin(), name.end());
    }
    std::string narrow(const std::string& name) const { return at(name).string(); }
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

    const std::filesystem::path root;

protected:
    static std::u16string backslashed(std::u16string text) {
        std::replace(text.begin(), text.end(), u'/', u'\\');
        return text;
    }
};
