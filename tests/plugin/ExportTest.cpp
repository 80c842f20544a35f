// The one export of the loaded module, called from many threads at once.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "contract/ImportDllInfo.h"
#include "platform/framework/SharedLibrary.h"
#include "platform/framework/Text.h"

TEST(Export, HandsTheSameRecordToEveryThread) {
    SharedLibrary module;
    std::u16string error;
    const std::u16string path = ProgramFolder() + u"/" + ModuleFileName(u"csv-import");
    ASSERT_TRUE(module.Load(path, error)) << Utf16ToUtf8(error);
    EXPECT_EQ(module.Find("Nothing"), nullptr);
    std::u16string reason;
    EXPECT_FALSE(SharedLibrary().Load(path + u".none", reason) || reason.empty());
    const auto entry = reinterpret_cast<ImportDllEntry>(module.Find(ImportDllEntryName));
    ASSERT_NE(entry, nullptr);
    std::vector<CImportDllInfo*> records(8, nullptr);
    std::vector<std::thread> threads;
    for (CImportDllInfo*& record : records) {
        threads.emplace_back([&] { EXPECT_EQ(entry(&record), ImportDllVersion); });
    }
    for (std::thread& thread : threads) thread.join();
    for (CImportDllInfo* const record : records) EXPECT_EQ(record, records[0]);
    EXPECT_NE(records[0]->Factory, nullptr);
    EXPECT_EQ(records[0]->Instance, ImageOfCode(reinterpret_cast<const void*>(entry)));
    EXPECT_NE(records[0]->Instance, ImageOfCode(&records)) << "the module's, not the program's";
}
