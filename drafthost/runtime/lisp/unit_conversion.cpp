#include "runtime/lisp/unit_conversion.h"

#include "runtime/lisp/letter_case.h"

#include <cmath>
#include <vector>

namespace drafthost {

namespace {

enum class Kind { Length, Area, Volume, Time, Mass, Angle, Temperature };

/// What a value in this unit is in the kind's first unit: value * factor + offset.
struct Unit {
    Kind kind;
    double factor;
    std::vector<std::wstring> names;  ///< lower case
    double offset = 0.0;
};

const std::vector<Unit>& Units() {
    static const std::vector<Unit> units = {
        {Kind::Length, 1.0, {L"m", L"meter", L"meters", L"metre", L"metres"}},
        {Kind::Length, 1e-9, {L"nm", L"nanometer", L"nanometers"}},
        {Kind::Length, 1e-6, {L"micron", L"microns"}},
        {Kind::Length,
         0.001,
         {L"mm", L"millimeter", L"millimeters", L"millimetre", L"millimetres"}},
        {Kind::Length, 0.01, {L"cm", L"centimeter", L"centimeters", L"centimetre", L"centimetres"}},
        {Kind::Length, 0.1, {L"dm", L"decimeter", L"decimeters", L"decimetre", L"decimetres"}},
        {Kind::Length, 1000.0, {L"km", L"kilometer", L"kilometers", L"kilometre", L"kilometres"}},
        {Kind::Length, 2.54e-5, {L"mil", L"mils"}},
        {Kind::Length, 0.0254, {L"in", L"inch", L"inches", L"\""}},
        {Kind::Length, 0.3048, {L"ft", L"foot", L"feet", L"'"}},
        {Kind::Length, 0.9144, {L"yd", L"yard", L"yards"}},
        {Kind::Length, 5.0292, {L"rod", L"rods"}},
        {Kind::Length, 201.168, {L"furlong", L"furlongs"}},
        {Kind::Length, 1609.344, {L"mi", L"mile", L"miles"}},
        {Kind::Length, 1852.0, {L"nautical_mile", L"nautical_miles"}},
        {Kind::Area, 4046.8564224, {L"acre", L"acres"}},
        {Kind::Area, 100.0, {L"are", L"ares"}},
        {Kind::Area, 10000.0, {L"ha", L"hectare", L"hectares"}},
        {Kind::Volume, 0.001, {L"l", L"liter", L"liters", L"litre", L"litres"}},
        {Kind::Volume, 1e-6, {L"ml", L"milliliter", L"milliliters", L"cc"}},
        {Kind::Volume, 0.003785411784, {L"gal", L"gallon", L"gallons"}},
        {Kind::Volume, 0.000946352946, {L"qt", L"quart", L"quarts"}},
        {Kind::Volume, 0.000473176473, {L"pt", L"pint", L"pints"}},
        {Kind::Time, 1.0, {L"sec", L"second", L"seconds"}},
        {Kind::Time, 0.001, {L"msec", L"millisecond", L"milliseconds"}},
        {Kind::Time, 60.0, {L"min", L"minute", L"minutes"}},
        {Kind::Time, 3600.0, {L"hr", L"hour", L"hours"}},
        {Kind::Time, 86400.0, {L"day", L"days"}},
        {Kind::Time, 604800.0, {L"week", L"weeks"}},
        {Kind::Mass, 1.0, {L"kg", L"kilogram", L"kilograms"}},
        {Kind::Mass, 1e-6, {L"mg", L"milligram", L"milligrams"}},
        {Kind::Mass, 0.001, {L"g", L"gram", L"grams"}},
        {Kind::Mass, 1000.0, {L"tonne", L"tonnes"}},
        {Kind::Mass, 0.028349523125, {L"oz", L"ounce", L"ounces"}},
        {Kind::Mass, 0.45359237, {L"lb", L"pound", L"pounds"}},
        {Kind::Mass, 907.18474, {L"ton", L"tons"}},
        {Kind::Angle, 1.0, {L"rad", L"radian", L"radians"}},
        {Kind::Angle, 3.14159265358979323846 / 180.0, {L"deg", L"degree", L"degrees"}},
        {Kind::Angle, 3.14159265358979323846 / 200.0, {L"grad", L"grads", L"grade", L"grades"}},
        {Kind::Angle, 2.0 * 3.14159265358979323846, {L"circle", L"circles"}},
        {Kind::Temperature, 1.0, {L"k", L"kelvin"}},
        {Kind::Temperature, 1.0, {L"c", L"celsius", L"centigrade"}, 273.15},
        {Kind::Temperature, 5.0 / 9.0, {L"f", L"fahrenheit"}, 459.67 * 5.0 / 9.0},
        {Kind::Temperature, 5.0 / 9.0, {L"rankine"}},
    };
    return units;
}

std::optional<Unit> FindPlain(const std::wstring& name) {
    for (const Unit& unit : Units()) {
        for (const std::wstring& own : unit.names) {
            if (own == name) return unit;
        }
    }
    return std::nullopt;
}

struct Power {
    const wchar_t* prefix;
    Kind kind;
    int exponent;
};

constexpr Power powers[] = {{L"sq ", Kind::Area, 2},
                            {L"square ", Kind::Area, 2},
                            {L"cu ", Kind::Volume, 3},
                            {L"cubic ", Kind::Volume, 3}};

std::optional<Unit> FindUnit(const std::wstring& name) {
    for (const Power& power : powers) {
        const std::wstring prefix = power.prefix;
        if (name.compare(0, prefix.size(), prefix) != 0) continue;
        const auto length = FindPlain(name.substr(prefix.size()));
        if (!length || length->kind != Kind::Length) return std::nullopt;
        return Unit{power.kind, std::pow(length->factor, power.exponent), {}};
    }
    return FindPlain(name);
}

}  // namespace

std::optional<double> ConvertUnits(double value, const std::wstring& from, const std::wstring& to) {
    const auto source = FindUnit(ToLowerCase(from));
    const auto target = FindUnit(ToLowerCase(to));
    if (!source || !target || source->kind != target->kind) return std::nullopt;
    return (value * source->factor + source->offset - target->offset) / target->factor;
}

}  // namespace drafthost
