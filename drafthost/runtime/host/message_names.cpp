#include "runtime/host/message_names.h"

namespace drafthost {

const wchar_t* MessageText(AcRx::AppMsgCode code) {
    switch (code) {
        case AcRx::kNullMsg:
            return L"message kNullMsg (0)";
        case AcRx::kInitAppMsg:
            return L"message kInitAppMsg (1)";
        case AcRx::kUnloadAppMsg:
            return L"message kUnloadAppMsg (2)";
        case AcRx::kLoadDwgMsg:
            return L"message kLoadDwgMsg (3)";
        case AcRx::kUnloadDwgMsg:
            return L"message kUnloadDwgMsg (4)";
        case AcRx::kInvkSubrMsg:
            return L"message kInvkSubrMsg (5)";
        case AcRx::kCfgMsg:
            return L"message kCfgMsg (6)";
        case AcRx::kEndMsg:
            return L"message kEndMsg (7)";
        case AcRx::kQuitMsg:
            return L"message kQuitMsg (8)";
        case AcRx::kSaveMsg:
            return L"message kSaveMsg (9)";
        case AcRx::kDependencyMsg:
            return L"message kDependencyMsg (10)";
        case AcRx::kNoDependencyMsg:
            return L"message kNoDependencyMsg (11)";
        case AcRx::kOleUnloadAppMsg:
            return L"message kOleUnloadAppMsg (12)";
        case AcRx::kPreQuitMsg:
            return L"message kPreQuitMsg (13)";
        case AcRx::kInitDialogMsg:
            return L"message kInitDialogMsg (14)";
        case AcRx::kEndDialogMsg:
            return L"message kEndDialogMsg (15)";
        case AcRx::kSuspendMsg:
            return L"message kSuspendMsg (16)";
    }
    return L"a message without a name";
}

}  // namespace drafthost
