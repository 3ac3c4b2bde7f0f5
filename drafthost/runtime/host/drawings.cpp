#include "runtime/host/drawing_file.h"
#include "runtime/host/module_call.h"
#include "runtime/host/module_table.h"
#include "runtime/host/offences.h"
#include "runtime/host/same_name.h"
#include "runtime/host/services.h"
#include "runtime/host/session.h"
#include "runtime/host/text_output.h"

namespace drafthost {

namespace {

Document* FindDrawing(const std::wstring& name) {
    for (const auto& document : HostServices()->documents.Documents()) {
        if (IsSameName(document->fileName(), name) || IsSameName(document->docTitle(), name)) {
            return document.get();
        }
    }
    return nullptr;
}

OpenResult OpenDocument(const std::wstring& path, std::wstring& problem) {
    DocumentManager& documents = HostServices()->documents;
    const Module* single = ModuleTable::Instance().FindSingleDocumentModule();
    if (single != nullptr && !documents.Documents().empty()) {
        problem = path + L" can't be opened: " + single->name + L" works with one drawing only.";
        return OpenResult::OneDrawingOnly;
    }
    Document& document = documents.Create(path);
    ModuleTable::Instance().SendToAll(AcRx::kLoadDwgMsg);
    RunStartUpFiles(document);
    EvaluateQueues();
    return OpenResult::Opened;
}

OpenResult OpenFile(const std::wstring& file, std::wstring& problem) {
    std::wstring path;
    const OpenResult result = CheckDrawingFile(file, path);
    if (result == OpenResult::FileMissing) {
        problem = L"Drawing " + path + L" not found.";
        return result;
    }
    if (result == OpenResult::Unreadable) {
        problem = L"Drawing " + path + L" can't be read.";
        return result;
    }
    if (Document* open = FindDrawing(path)) {
        PrintLine(path + L" is open already.");
        HostServices()->documents.Activate(*open);
        return OpenResult::AlreadyOpen;
    }
    return OpenDocument(path, problem);
}

/// Functions of modules that `kUnloadDwgMsg` should have ended.
void ReportDefinitions(const Document& document) {
    for (const LispDefinition& definition : document.Definitions()) {
        ReportOffence(definition.owner, L"LISP function " + definition.name +
                                            L" left defined when " + document.docTitle() +
                                            L" was closed");
    }
}

}  // namespace

OpenResult OpenDrawing(const std::wstring& file, std::wstring* problem) {
    std::wstring line;
    const OpenResult result = OpenFile(file, line);
    TellProblem(line, problem);
    return result;
}

OpenResult NewDrawing() {
    static int count = 0;
    std::wstring problem;
    const OpenResult result =
        OpenDocument(L"Drawing" + std::to_wstring(++count) + L".dwg", problem);
    TellProblem(problem, nullptr);
    return result;
}

bool CloseDrawing() {
    DocumentManager& documents = HostServices()->documents;
    Document* document = documents.Active();
    if (document == nullptr || IsBusy()) return false;
    documents.SetCurrent(document);
    ModuleTable::Instance().SendToAll(AcRx::kUnloadDwgMsg);
    ReportDefinitions(*document);
    documents.Destroy(*document);
    EvaluateQueues();
    return true;
}

bool ActivateDrawing(const std::wstring& name) {
    Document* document = FindDrawing(name);
    if (document == nullptr) document = FindDrawing(name + L".dwg");
    if (document == nullptr) return false;
    HostServices()->documents.Activate(*document);
    return true;
}

std::vector<DrawingInfo> Drawings() {
    std::vector<DrawingInfo> drawings;
    const DocumentManager& documents = HostServices()->documents;
    for (const auto& document : documents.Documents()) {
        drawings.push_back(
            {document->fileName(), document->docTitle(), document.get() == documents.Active()});
    }
    return drawings;
}

}  // namespace drafthost
