// SPDX-License-Identifier: Apache-2.0
// A server that does what its command line says, for the tests of the client. Words that it doesn't
// know are passed over, as the client's own are.
//   -FakeReport FILE   writes its words to FILE, one a line
//   -FakeEnv NAME      and, behind them, NAME=VALUE as it sees it
//   -FakeCopy FROM TO  copies a file, as a model or an export
//   -FakeSleep MS      lives that long
//   -FakeCrash         ends by a fault
//   -FakeExit CODE     ends with that status
// In a conversation, on the port that stands behind -ControlSocket:
//   -TalkListen        listens and takes the next client
//   -TalkAwait NAME    reads frames up to the message of that name; ends with status 98 without one
//   -TalkSend NAME     sends a message that has no body
//   -TalkResult FILE   names a result file
//   -TalkHalf          sends the beginning of a frame
//   -TalkNoise         sends a count that can't be
//   -TalkClose         closes the connection
#include "tests/support/loopback.h"

#include <algorithm>
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

/// A text as it goes over the wire, for letters below 128.
std::string wireText(const std::string& text) {
    std::string wide;
    for (const char letter : text) (wide += '\0') += letter;
    return loopback::frame(wide);
}

std::string resultMessage(const std::string& file) {
    const std::string two("\0\0\0\2", 4);
    return wireText("SetParameters") + two + wireText("-ResultFile") + wireText(file);
}

class Conversation {
public:
    explicit Conversation(const Words& all) : words(all) {}

    void perform(std::size_t i) {
        const std::string& word = words[i];
        if (word == "-TalkListen") listen();
        if (word == "-TalkAwait") await(wireText(words.at(i + 1)));
        if (word == "-TalkSend") client.send(loopback::frame(wireText(words.at(i + 1))));
        if (word == "-TalkResult") client.send(loopback::frame(resultMessage(words.at(i + 1))));
        if (word == "-TalkHalf") client.send(std::string("\0\0\0\x20half", 8));
        if (word == "-TalkNoise") client.send("\xff\xff\xff\xff");
        if (word == "-TalkClose") client.close();
    }

private:
    std::uint16_t port() const {
        const auto option = std::find(words.begin(), words.end(), "-ControlSocket");
        return static_cast<std::uint16_t>(std::stoi(*(option + 2)));
    }
    /// The listener stays, so that a client may come before it is wanted.
    void listen() {
        if (!listener) listener.emplace(5, port());
        client = listener->accept();
    }
    void await(const std::string& record) {
        for (;;) {
            const std::string count = client.receive(4);
            if (count.size() < 4) std::exit(98);
            const auto length =
                static_cast<unsigned char>(count[3]) + 256u * static_cast<unsigned char>(count[2]);
            if (client.receive(length).starts_with(record)) return;
        }
    }

    const Words& words;
    std::optional<loopback::Listener> listener;
    loopback::Peer client;
};

} // namespace

int main(int argc, char** argv) {
    const Words words(argv + 1, argv + argc);
    int status = 0;
    if (!platform::startSockets()) return 97;
    Conversation conversation(words);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        conversation.perform(i);
        if (word == "-FakeReport") report(words, words.at(i + 1));
        if (word == "-FakeCopy") {
            std::filesystem::copy_file(words.at(i + 1), words.at(i + 2),
                                       std::filesystem::copy_options::overwrite_existing);
        }
        if (word == "-FakeSleep") {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(words.at(i + 1))));
        }
        if (word == "-FakeCrash") __builtin_trap();
        if (word == "-FakeExit") status = std::stoi(words.at(i + 1));
    }
    return status;
}
