// Runs a fuzz target over damaged copies of its seeds, for compilers without a fuzzer of their own:
//     fuzz_help_book RUNS FIRST SEED...
// runs number FIRST and those after it. What a number does to a seed never changes, so a finding is repeated alone by
// RUNS = 1 and the number that is printed.
#include "fuzz/mutate.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <unistd.h>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

/// No input may keep the program longer than this [s].
constexpr unsigned kLongest = 20;

volatile std::uint64_t current = 0;

void TellNumber() {
    char text[64];
    const int size =
        std::snprintf(text, sizeof text, "\nfinding: run 1 %llu\n", static_cast<unsigned long long>(current));
    if (write(STDERR_FILENO, text, static_cast<std::size_t>(size)) < 0)
        _exit(1);
}

void OnSignal(int signal) {
    TellNumber();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

std::vector<krt550::Bytes> ReadSeeds(int count, char** names) {
    std::vector<krt550::Bytes> seeds;
    for (int at = 0; at < count; ++at) {
        std::ifstream file(names[at], std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        if (seeds.back().empty()) {
            std::fprintf(stderr, "%s: cannot be read, or empty\n", names[at]);
            std::exit(2);
        }
    }
    return seeds;
}

} // namespace

int main(int argc, char** argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s RUNS FIRST SEED...\n", argv[0]);
        return 2;
    }
    const std::uint64_t runs = std::strtoull(argv[1], nullptr, 10);
    const std::uint64_t first = std::strtoull(argv[2], nullptr, 10);
    const std::vector<krt550::Bytes> seeds = ReadSeeds(argc - 3, argv + 3);
    if (__sanitizer_set_death_callback)
        __sanitizer_set_death_callback(TellNumber);
    for (const int signal : {SIGALRM, SIGABRT})
        std::signal(signal, OnSignal);

    for (std::uint64_t number = first; number < first + runs; ++number) {
        current = number;
        const krt550::Bytes bytes = krt550::Mutate(seeds[number % seeds.size()], number);
        alarm(kLongest);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    alarm(0);
    std::printf("%llu runs from %llu, no finding\n", static_cast<unsigned long long>(runs),
                static_cast<unsigned long long>(first));
    return 0;
}
