// The walk along a path of element names beside the same walk by hand over the same document.

#include "config/element_walk.h"
#include "support/allocation_count.h"
#include "support/paired_benchmark.h"

#include "config/configuration.h"

#include <chrono>
#include <string>

namespace {

constexpr char deepPath[] = "Config.Drawing.Layers.Walls.Outer.Thickness";

/// "Config.Row0" ... as many siblings as named, which are there at once.
std::string Sibling(size_t number) {
    return "Config.Row" + std::to_string(number);
}

template <size_t Siblings>
Configuration& Rows() {
    static Configuration configuration;
    if (configuration.document.NoChildren()) {
        tinyxml2::XMLElement* root = configuration.document.NewElement("Config");
        configuration.document.InsertEndChild(root);
        for (size_t i = 0; i < Siblings; ++i)
            root->InsertNewChildElement(("Row" + std::to_string(i)).c_str());
    }
    return configuration;
}

Configuration& Deep() {
    static Configuration configuration;
    configuration.FindOrCreate(deepPath);
    return configuration;
}

/// Times `find` over the path, and states the allocations of a call and the time for each sibling
/// that is passed.
template <typename Find>
void MeasureFind(benchmark::State& state, const std::string& path, size_t siblings, Find find) {
    {
        const AllocationCount allocations;
        if (find(path) == nullptr) state.SkipWithError("not found");
        state.counters["allocations in a call"] = allocations.Count();
    }
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(find(path));
    const std::chrono::duration<double, std::nano> passed =
        std::chrono::steady_clock::now() - start;
    state.counters["ns for each sibling"] =
        passed.count() / static_cast<double>(state.iterations() * siblings);
}

void OurDeepFind(benchmark::State& state) {
    Configuration& configuration = Deep();
    MeasureFind(state, deepPath, 6,
                [&](const std::string& path) { return configuration.Find(path); });
}

void BareDeepFind(benchmark::State& state) {
    tinyxml2::XMLDocument& document = Deep().document;
    MeasureFind(state, deepPath, 6,
                [&](const std::string& path) { return WalkByHand(document, path).element; });
}

template <size_t Siblings>
void OurFind(benchmark::State& state) {
    Configuration& configuration = Rows<Siblings>();
    MeasureFind(state, Sibling(Siblings - 1), Siblings,
                [&](const std::string& path) { return configuration.Find(path); });
}

template <size_t Siblings>
void BareFind(benchmark::State& state) {
    tinyxml2::XMLDocument& document = Rows<Siblings>().document;
    MeasureFind(state, Sibling(Siblings - 1), Siblings,
                [&](const std::string& path) { return WalkByHand(document, path).element; });
}

constexpr size_t manyRows = 10000;

void OurIndexOf(benchmark::State& state) {
    Configuration& configuration = Rows<manyRows>();
    const std::string path = Sibling(manyRows - 1);
    int index = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(index = configuration.IndexOf(path));
    if (index != manyRows - 1) state.SkipWithError("another index");
}

void BareIndexOf(benchmark::State& state) {
    tinyxml2::XMLDocument& document = Rows<manyRows>().document;
    const std::string path = Sibling(manyRows - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(WalkByHand(document, path).position);
}

/// 10,000 paths: a hundred settings in each of a hundred groups.
const std::vector<std::string>& NewPaths() {
    static const std::vector<std::string> paths = [] {
        std::vector<std::string> made;
        made.reserve(manyRows);
        for (size_t i = 0; i < manyRows; ++i) {
            made.push_back("Config.Group" + std::to_string(i / 100) + ".Setting" +
                           std::to_string(i % 100));
        }
        return made;
    }();
    return paths;
}

void OurFindOrCreate(benchmark::State& state) {
    for (auto _ : state) {
        Configuration configuration;
        for (const std::string& path : NewPaths())
            benchmark::DoNotOptimize(configuration.FindOrCreate(path));
    }
}

void BareFindOrCreate(benchmark::State& state) {
    for (auto _ : state) {
        tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
        document.InsertEndChild(document.NewElement("Config"));
        for (const std::string& path : NewPaths())
            benchmark::DoNotOptimize(WalkOrMakeByHand(document, path).element);
    }
}

void MoveByHand(tinyxml2::XMLDocument& document, const std::string& path, unsigned index) {
    const Walked walked = WalkByHand(document, path);
    tinyxml2::XMLNode* parent = walked.element->Parent();
    tinyxml2::XMLElement* before = index > 0 ? parent->FirstChildElement() : nullptr;
    for (unsigned i = 1; i < index; ++i)
        before = before->NextSiblingElement();
    tinyxml2::XMLNode* copy = walked.element->DeepClone(&document);
    parent->DeleteChild(walked.element);
    if (before == nullptr) {
        parent->InsertFirstChild(copy);
    } else {
        parent->InsertAfterChild(before, copy);
    }
}

/// To the front and, since the list counts the moved one, back to the last place but one.
template <typename Move>
void MeasureMove(benchmark::State& state, Move move) {
    Configuration& configuration = Rows<manyRows>();
    const std::string path = Sibling(manyRows - 2);
    for (auto _ : state) {
        move(configuration, path, 0);
        move(configuration, path, manyRows - 1);
    }
    if (configuration.IndexOf(path) != manyRows - 2) state.SkipWithError("another place");
}

void OurMove(benchmark::State& state) {
    MeasureMove(state, [](Configuration& configuration, const std::string& path, unsigned index) {
        configuration.MoveTo(path, index);
    });
}

void BareMove(benchmark::State& state) {
    MeasureMove(state, [](Configuration& configuration, const std::string& path, unsigned index) {
        MoveByHand(configuration.document, path, index);
    });
}

const ExtraFigure noAllocation = {"allocations in a call", 0};
const ExtraFigure perSibling = {"ns for each sibling"};
constexpr char walk[] = "the same walk by hand over the same document";

const PairedBenchmarkEntry entries[] = {
    PairedBenchmarkEntry(
        {"config/Find 6 deep", OurDeepFind, BareDeepFind, 1.10, walk, {noAllocation}}),
    PairedBenchmarkEntry({"config/Find last of 1,000 siblings",
                          OurFind<1000>,
                          BareFind<1000>,
                          1.10,
                          walk,
                          {noAllocation, perSibling}}),
    PairedBenchmarkEntry({"config/Find last of 10,000 siblings",
                          OurFind<manyRows>,
                          BareFind<manyRows>,
                          1.10,
                          walk,
                          {noAllocation, perSibling}}),
    PairedBenchmarkEntry({"config/Find last of 100,000 siblings",
                          OurFind<100000>,
                          BareFind<100000>,
                          1.10,
                          walk,
                          {noAllocation, perSibling}}),
    PairedBenchmarkEntry({"config/IndexOf last of 10,000 siblings", OurIndexOf, BareIndexOf, 1.10,
                          "the same walk by hand, counting"}),
    PairedBenchmarkEntry({"config/FindOrCreate of 10,000 paths", OurFindOrCreate, BareFindOrCreate,
                          1.10, "the same walk by hand, NewElement, InsertEndChild"}),
    PairedBenchmarkEntry({"config/MoveTo among 10,000, there and back", OurMove, BareMove, 1.10,
                          "the same walk by hand, DeepClone, DeleteChild, insertion"}),
};

}  // namespace
