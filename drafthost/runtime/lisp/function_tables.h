#pragma once

namespace drafthost {

class LispEvaluator;

// Each defines the built-in functions of one subject; the table stands at the end of its file.
void DefineSpecialForms(LispEvaluator& evaluator);
void DefineNumberFunctions(LispEvaluator& evaluator);
void DefinePointFunctions(LispEvaluator& evaluator);
void DefineComparisonFunctions(LispEvaluator& evaluator);
void DefinePredicates(LispEvaluator& evaluator);
void DefineListFunctions(LispEvaluator& evaluator);
void DefineMappingFunctions(LispEvaluator& evaluator);
void DefineSortingFunctions(LispEvaluator& evaluator);
void DefineStringFunctions(LispEvaluator& evaluator);
void DefineStringSearchFunctions(LispEvaluator& evaluator);
void DefineSymbolFunctions(LispEvaluator& evaluator);
void DefineErrorFunctions(LispEvaluator& evaluator);
void DefineOutputFunctions(LispEvaluator& evaluator);
void DefineFileFunctions(LispEvaluator& evaluator);
void DefineInputFunctions(LispEvaluator& evaluator);
void DefineEnvironmentFunctions(LispEvaluator& evaluator);
void DefineModuleFunctions(LispEvaluator& evaluator);
void DefineFileSystemFunctions(LispEvaluator& evaluator);
void DefineRegistryFunctions(LispEvaluator& evaluator);
void DefineBlackboardFunctions(LispEvaluator& evaluator);
void DefineUnitFunctions(LispEvaluator& evaluator);

}  // namespace drafthost
