// SPDX-License-Identifier: Apache-2.0
// A server that does what its command line says, for the tests of the client. Words that it doesn't
// know are passed over, as the client's own are.
//   -FakeReport FILE   writes its words to FILE, one a line
//   -FakeEnv NAME      and, behind them, NAME=VALUE as it sees it
//   -FakeCopy FROM TO  copies a file, as a model or an export
//   -FakeSleep MS      lives that long
//   -FakeCrash         ends by a signal
//   -FakeExit CODE     ends with that status
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using Words = std::vector<std::string>;

void report(const Words& words, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    for (const std::string& word : words) out << word << '\n';
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        if (words[i] != "-FakeEnv") continue;
        const char* value = std::getenv(words[i + 1].c_str());
        out << words[i + 1] << '=' << (value ? value : "(unset)") << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    const Words words(argv + 1, argv + argc);
    int status = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "-FakeReport") report(words, words.at(i + 1));
        if (word == "-FakeCopy") {
            std::filesystem::copy_file(words.at(i + 1), words.at(i + 2),
                                       std::filesystem::copy_options::overwrite_existing);
        }
        if (word == "-FakeSleep") {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(words.at(i + 1))));
        }
        if (word == "-FakeCrash") std::abort();
        if (word == "-FakeExit") status = std::stoi(words.at(i + 1));
    }
    return status;
}
