#include "host/lisp_recorder.h"

#include "support/call_journal.h"

#include <string>

namespace {

int Record(const wchar_t* call, const wchar_t* name, short code) {
    CallJournal::Add(std::wstring(call) + L" " + name + L" " + std::to_wstring(code));
    return RTERROR;
}

int RecordDefun(const wchar_t* name, short code) {
    return Record(L"acedDefun", name, code);
}

int RecordUndef(const wchar_t* name, short code) {
    return Record(L"acedUndef", name, code);
}

}  // namespace

LispRecorder::LispRecorder()
    : m_defun("drafthost17.dll", "_Z9acedDefunPKws", &RecordDefun),
      m_undef("drafthost17.dll", "_Z9acedUndefPKws", &RecordUndef) {}
