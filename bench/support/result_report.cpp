#include "support/result_report.h"

#include <cstdio>
#include <fstream>

namespace {

std::string Time(double nanoseconds) {
    char text[32];
    if (nanoseconds >= 1e9) {
        std::snprintf(text, sizeof text, "%.3f s", nanoseconds / 1e9);
    } else if (nanoseconds >= 1e6) {
        std::snprintf(text, sizeof text, "%.3f ms", nanoseconds / 1e6);
    } else if (nanoseconds >= 1e3) {
        std::snprintf(text, sizeof text, "%.3f us", nanoseconds / 1e3);
    } else {
        std::snprintf(text, sizeof text, "%.1f ns", nanoseconds);
    }
    return text;
}

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, value == static_cast<long long>(value) ? "%.0f" : "%.4g",
                  value);
    return text;
}

const char* Mark(double value, double aim) {
    return value > aim ? "  MISSED" : "";
}

void PrintFigure(const PairResult& result, const ExtraFigure& figure, FILE* file) {
    const auto ours = result.ours.figures.find(figure.name);
    const auto bare = result.bare.figures.find(figure.name);
    const std::string label = std::string("  ") + figure.name;
    if (ours == result.ours.figures.end()) {
        std::fprintf(file, "%-46s   NOT REPORTED\n", label.c_str());
        return;
    }
    const double value = Median(ours->second);
    const std::string bareValue =
        bare == result.bare.figures.end() ? "" : Number(Median(bare->second));
    std::fprintf(file, "%-46s %12s %12s", label.c_str(), Number(value).c_str(), bareValue.c_str());
    if (figure.aim != ExtraFigure::noAim) {
        std::fprintf(file, "%25s %6s%s", "", Number(figure.aim).c_str(), Mark(value, figure.aim));
    }
    std::fprintf(file, "\n");
}

void PrintTimes(const PairResult& result, FILE* file) {
    const PairedBenchmark& pair = result.pair;
    std::fprintf(file, "%-46s %12s", pair.name, Time(Median(result.ours.nanoseconds)).c_str());
    if (!result.ratios.empty()) {
        const double ratio = Median(result.ratios);
        std::fprintf(file, " %12s %7.3f %7.3f..%7.3f",
                     Time(Median(result.bare.nanoseconds)).c_str(), ratio,
                     Quantile(result.ratios, 0.25), Quantile(result.ratios, 0.75));
        if (pair.aim > 0) std::fprintf(file, " %6.2f%s", pair.aim, Mark(ratio, pair.aim));
    }
    std::fprintf(file, "\n");
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        quoted += character;
    }
    return quoted + "\"";
}

void WriteList(std::ostream& file, const char* name, const std::vector<double>& values) {
    file << Quoted(name) << ": [";
    for (size_t i = 0; i < values.size(); ++i)
        file << (i == 0 ? "" : ", ") << values[i];
    file << "]";
}

void WriteFigures(std::ostream& file, const PairResult& result) {
    const auto value = [](const SideResult& side, const char* name) -> std::string {
        const auto found = side.figures.find(name);
        return found == side.figures.end() ? "null" : Number(Median(found->second));
    };
    file << "\"figures\": [";
    const char* separator = "";
    for (const ExtraFigure& figure : result.pair.figures) {
        file << separator << "{\"name\": " << Quoted(figure.name)
             << ", \"aim\": " << (figure.aim == ExtraFigure::noAim ? "null" : Number(figure.aim))
             << ", \"ours\": " << value(result.ours, figure.name)
             << ", \"bare\": " << value(result.bare, figure.name) << "}";
        separator = ", ";
    }
    file << "]";
}

void WriteResult(std::ostream& file, const PairResult& result) {
    file << "  {\"path\": " << Quoted(result.pair.name)
         << ", \"bare_calls\": " << Quoted(result.pair.bareCalls)
         << ", \"aim\": " << (result.pair.aim > 0 ? Number(result.pair.aim) : "null")
         << ", \"failure\": " << (result.failure.empty() ? "null" : Quoted(result.failure))
         << ", \"median_ours_ns\": " << Median(result.ours.nanoseconds)
         << ", \"median_bare_ns\": " << Median(result.bare.nanoseconds)
         << ", \"median_ratio\": " << Median(result.ratios) << ", \"ratio_quartiles\": ["
         << Quantile(result.ratios, 0.25) << ", " << Quantile(result.ratios, 0.75) << "], ";
    WriteFigures(file, result);
    file << ", ";
    WriteList(file, "ours_ns", result.ours.nanoseconds);
    file << ", ";
    WriteList(file, "bare_ns", result.bare.nanoseconds);
    file << ", ";
    WriteList(file, "ratios", result.ratios);
    file << "}";
}

}  // namespace

void PrintTable(const std::vector<PairResult>& results, FILE* file) {
    std::fprintf(file, "%-46s %12s %12s %7s %16s %6s\n", "path", "ours", "bare", "ratio",
                 "middle half", "aim");
    for (const PairResult& result : results) {
        if (!result.failure.empty()) {
            std::fprintf(file, "%-46s   FAILED: %s\n", result.pair.name, result.failure.c_str());
            continue;
        }
        PrintTimes(result, file);
        for (const ExtraFigure& figure : result.pair.figures)
            PrintFigure(result, figure, file);
    }
}

bool WriteJson(const std::vector<PairResult>& results, const char* path) {
    std::ofstream file(path);
    file.precision(12);
    file << "[\n";
    for (size_t i = 0; i < results.size(); ++i) {
        WriteResult(file, results[i]);
        file << (i + 1 < results.size() ? ",\n" : "\n");
    }
    file << "]\n";
    file.close();
    return !file.fail();
}
