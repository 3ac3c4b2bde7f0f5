#include "runtime/lisp/equality.h"

#include <cmath>
#include <utility>
#include <vector>

namespace drafthost {

bool AreEqualLisp(const LispValue& left, const LispValue& right, double fuzz) {
    std::vector<std::pair<const LispValue*, const LispValue*>> waiting = {{&left, &right}};
    while (!waiting.empty()) {
        const auto [one, other] = waiting.back();
        waiting.pop_back();
        if (one->IsNumber() && other->IsNumber()) {
            const bool areClose = one->AsReal() == other->AsReal() ||
                                  std::fabs(one->AsReal() - other->AsReal()) <= fuzz;
            if (!areClose) return false;
        } else if (one->IsCons() && other->IsCons()) {
            if (one->Cell() == other->Cell()) continue;
            waiting.emplace_back(&one->Cdr(), &other->Cdr());
            waiting.emplace_back(&one->Car(), &other->Car());
        } else if (!one->IsSame(*other)) {
            return false;
        }
    }
    return true;
}

}  // namespace drafthost
