// SPDX-License-Identifier: Apache-2.0
// How fast files of records are decoded: the loop of a receiver through RecordReader, raced against
// the same loop that reads value by value through QDataStream, and against a limit.
//
// The limit copies the file's bytes from memory to memory with their 8-byte words swapped: what no
// decoder can beat, since it neither reads a file nor builds an object. Files are written first, so
// that they come from the system's cache and no disk is measured. All jobs run in turns, and ratios
// are those of the medians. The seeds are fixed.
//
//     decode [megabytes of a file] [turns]
#include "cadimport/recordreader.h"
#include "tests/cadimport/plainreading.h"
#include "tests/cadimport/samplemessages.h"

#include <QTemporaryFile>
#include <QtEndian>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <vector>

namespace {

using namespace CADImport;

/// Handles what the import's receiver handles, and does nothing with it.
template <class T> struct IdleVisit : Visitor<T, void, true> {
    void visit(const T&) override {}
};
template <class... Classes> struct Idle : BaseVisitor, IdleVisit<Classes>... {};
using Receiver =
    Idle<CreateArc, CreateBody, CreateCoedge, CreateCone, CreateCoordinateSystem, CreateCylinder,
         CreateEdge, CreateEllipse, CreateFace, CreateGroup, CreateLine, CreateLoop,
         CreateNURBSCurve, CreateNURBSSurface, CreatePlane, CreateShell, CreateSphere, CreateTorus,
         CreateVertex, EndModel, NewModel, OKMessage>;

void receive(const Message* message, Receiver& receiver, qint64& count) {
    if (!message) return;
    ++count;
    if (message->isValid()) message->accept(receiver);
}

/// Looks at messages in objects that the reader keeps.
qint64 look(QFile& file) {
    Receiver receiver;
    qint64 count = 0;
    RecordReader records(file);
    while (!records.atEnd()) receive(records.look(), receiver, count);
    return count;
}

/// Gets, and deletes, an object a message.
qint64 own(QFile& file) {
    Receiver receiver;
    qint64 count = 0;
    RecordReader records(file);
    while (!records.atEnd()) receive(records.next().get(), receiver, count);
    return count;
}

qint64 readValueByValue(QFile& file) {
    Receiver receiver;
    qint64 count = 0;
    QDataStream stream(&file);
    stream.setVersion(streamVersion);
    while (!file.atEnd()) receive(plain::readRecord(stream).get(), receiver, count);
    return count;
}

/// Of the processor, so that neighbours on the machine count for little.
double seconds(const std::function<void()>& job) {
    const std::clock_t start = std::clock();
    job();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

struct Job {
    const char* name;
    std::function<void()> run;
    std::vector<double> times{};

    double median() {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }
};

void race(const char* stream, const QByteArray& bytes, int turns) {
    QTemporaryFile file;
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        std::fprintf(stderr, "decode: cannot write a temporary file\n");
        std::exit(1);
    }
    QByteArray copy(bytes.size(), 'x');
    qint64 records = 0;
    const auto overFile = [&](qint64 (*read)(QFile&)) {
        return [&file, &records, read] {
            file.seek(0);
            records = read(file);
        };
    };
    Job limit{"limit", [&] { qbswap<8>(bytes.constData(), bytes.size() / 8, copy.data()); }};
    Job looking{"RecordReader", overFile(look)};
    Job owning{"its own objects", overFile(own)};
    Job values{"value by value", overFile(readValueByValue)};
    for (int turn = 0; turn < turns; ++turn) {
        for (Job* job : {&limit, &looking, &owning, &values})
            job->times.push_back(seconds(job->run));
    }

    const auto size = static_cast<double>(bytes.size());
    const auto count = static_cast<double>(records);
    std::printf("%s: %.0f MB, %.0f records of %.0f bytes\n", stream, size / 1e6, count,
                size / count);
    for (Job* job : {&limit, &looking, &owning, &values}) {
        std::printf("  %-15s %8.1f ms %7.2f GB/s %8.1f ns/record %7.2f x limit\n", job->name,
                    job->median() * 1e3, size / job->median() / 1e9, job->median() * 1e9 / count,
                    job->median() / limit.median());
    }
    std::printf("  RecordReader is %.1f times as fast as value by value\n",
                values.median() / looking.median());
}

} // namespace

int main(int argc, char** argv) {
    const int megabytes = argc > 1 ? std::atoi(argv[1]) : 200;
    const int turns = argc > 2 ? std::atoi(argv[2]) : 7;
    if (megabytes < 1 || turns < 1) {
        std::fprintf(stderr, "usage: decode [megabytes] [turns]\n");
        return 2;
    }
    race("mixed", sample::mixedModel(megabytes * 1000000LL), turns);
    race("small records", sample::smallRecords(megabytes * 1000000LL), turns);
    return 0;
}
