// Cutting lines out of 256 MiB of 60-byte lines that arrive in pieces of 1 to 1500 bytes.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <cstring>
#include <random>

#include "link/line_cutter.h"

namespace {

constexpr std::size_t streamBytes = 256u << 20;
constexpr std::size_t lineBytes = 60;

struct Stream {
    std::string bytes;
    std::vector<std::string_view> pieces;
};

const Stream& stream() {
    static const Stream made = [] {
        Stream stream;
        const std::string line = "I_ALR113,25,40,,0123456789012345678901234567890123456789012\r";
        stream.bytes.reserve(streamBytes);
        while (stream.bytes.size() + line.size() <= streamBytes) stream.bytes += line;
        std::mt19937 random(1);
        std::uniform_int_distribution<std::size_t> size(1, 1500);
        for (std::string_view rest = stream.bytes; !rest.empty();) {
            const auto length = std::min(size(random), rest.size());
            stream.pieces.push_back(rest.substr(0, length));
            rest.remove_prefix(length);
        }
        static_assert(lineBytes == 60);
        return stream;
    }();
    return made;
}

void scan(benchmark::State& state) {
    for (auto _ : state) {
        std::size_t lines = 0;
        for (auto piece : stream().pieces) {
            const char* at = piece.data();
            const char* const end = at + piece.size();
            while ((at = static_cast<const char*>(std::memchr(at, '\r', static_cast<std::size_t>(end - at))))) {
                ++lines;
                if (++at == end) break;
            }
        }
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream().bytes.size()));
}

void cutLines(benchmark::State& state) {
    for (auto _ : state) {
        trunvex::LineCutter cutter;
        std::size_t lines = 0;
        std::size_t length = 0;
        for (auto piece : stream().pieces)
            cutter.feed(piece, [&](std::string_view line) {
                ++lines;
                length += line.size();
            });
        if (lines * lineBytes != stream().bytes.size() || length != lines * (lineBytes - 1))
            state.SkipWithError("lines were lost");
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream().bytes.size()));
}

void cutByteArrays(benchmark::State& state) {
    for (auto _ : state) {
        QByteArray buffer;
        std::size_t lines = 0;
        for (auto piece : stream().pieces) {
            buffer.append(piece.data(), static_cast<qsizetype>(piece.size()));
            qsizetype start = 0;
            for (qsizetype end = buffer.indexOf('\r'); end >= 0; end = buffer.indexOf('\r', start)) {
                const QByteArray line = buffer.mid(start, end - start);
                benchmark::DoNotOptimize(line.size());
                ++lines;
                start = end + 1;
            }
            buffer = buffer.mid(start);
        }
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * stream().bytes.size()));
}

BENCHMARK(scan)->Name("cut/memchr")->Repetitions(5)->Unit(benchmark::kMillisecond);
BENCHMARK(cutLines)->Name("cut/LineCutter")->Repetitions(5)->Unit(benchmark::kMillisecond);
BENCHMARK(cutByteArrays)->Name("cut/QByteArray")->Repetitions(5)->Unit(benchmark::kMillisecond);

}  // namespace
