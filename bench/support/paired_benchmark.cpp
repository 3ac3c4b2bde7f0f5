#include "support/paired_benchmark.h"

namespace {

std::vector<PairedBenchmark>& List() {
    static std::vector<PairedBenchmark> pairs;
    return pairs;
}

}  // namespace

PairedBenchmarkEntry::PairedBenchmarkEntry(const PairedBenchmark& pair) {
    List().push_back(pair);
}

const std::vector<PairedBenchmark>& PairedBenchmarks() {
    return List();
}
