#include "contract/ImportFilter.h"

#include <string_view>

#include "platform/framework/FrameworkStrings.h"
#include "platform/framework/Module.h"

CImportFilter::CImportFilter(const char16_t* path) : FilePath(path) {}

CImportFilter::~CImportFilter() = default;

bool CImportFilter::TryFastImport(const char16_t*, bool) {
    return false;
}

std::vector<ImportMessage> CImportFilter::TakeMessages() {
    return std::exchange(Messages, {});
}

void CImportFilter::AddDevCountWarningMessage(bool reserved) {
    AddMessage(true, -1, reserved,
               LoadFrameworkString(IdNoDevice, u"Für die Quelldatei konnte kein Gerät angelegt werden."));
}

void CImportFilter::AddWriteErrorMessage() {
    AddMessage(true, -1, false,
               LoadFrameworkString(IdStoreFailed,
                                   u"Beim Schreiben in den Datenspeicher ist ein Fehler aufgetreten."));
}

void* CImportFilter::FindInterface(const char* id) const {
    for (const auto& [offered, interface] : Interfaces) {
        if (std::string_view(offered) == id) return interface;
    }
    return nullptr;
}

void CImportFilter::AddMessageText(bool failure, int column, bool, std::u16string text) {
    Messages.push_back({failure, column, std::move(text)});
}
