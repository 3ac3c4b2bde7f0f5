#include "host/class_recorder.h"

#include "support/call_journal.h"

#include <string>

namespace {

decltype(&acrxBuildClassHierarchy) g_realBuild = nullptr;
decltype(&deleteAcRxClass) g_realDelete = nullptr;

void RecordBuild() {
    CallJournal::Add(L"build hierarchy");
    g_realBuild();
}

void RecordDelete(AcRxClass* descriptor) {
    CallJournal::Add(L"delete " + std::wstring(descriptor->name()));
    g_realDelete(descriptor);
}

}  // namespace

ClassRecorder::ClassRecorder()
    : m_build("drafthost17.dll", "_Z23acrxBuildClassHierarchyv", &RecordBuild),
      m_delete("drafthost17.dll", "_Z15deleteAcRxClassP9AcRxClass", &RecordDelete) {
    g_realBuild = m_build.Original();
    g_realDelete = m_delete.Original();
}
