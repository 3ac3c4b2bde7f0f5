#include "install/lisp_load.h"

#include "install/install_record.h"
#include "install/lisp_expression.h"
#include "install/path_probe.h"

#include <glog/logging.h>

#include <aced.h>
#include <atlstr.h>

#include <algorithm>

void LoadLispApplication() {
    std::wstring path = LispFilePath(GetInstallLocation());
    // Meant: ahead of any test, so a missing file has its line too, and still with backslashes.
    LOG(INFO) << "加载lisp文件:" << CStringA(path.c_str()).GetString();
    std::replace(path.begin(), path.end(), L'\\', L'/');
    if (ProbePath(path) != PathFile) return;
    // Result ignored: a host that refuses the expression has its own way to say so.
    ads_queueexpr(LispLoadExpression(path).c_str());
}
