// The file of --store.
#pragma once

#include <memory>
#include <string>

#include "host/store/SampleFile.h"

namespace kelvarin::cli {
// Fills a sample file with the devices of runs, and reports on standard error what became of it. Without a
// path it does nothing.
class StoreFile {
  public:
    explicit StoreFile(std::string path) : Path(std::move(path)) {}

    // False if the file can't be written.
    bool Open();

    // What takes the samples of the next run; null without a path.
    store::DeviceSink* BeginRun();

    // Keeps the device of the run if `isDone` and it isn't null. False if the file can't be written any more.
    bool EndRun(const store::StoredDevice* device, const store::SampleOrigin& origin, bool isDone);

    // Puts the file in its place; it then holds the runs that were done. False if there is none.
    bool Finish();

    // Leaves what was there before.
    void Abandon();

  private:
    void GiveUp(const std::string& why);

    // True for an empty reason; else gives the file up and reports why it is not written.
    bool CheckWritten(const std::string& reason);

    const std::string Path;
    std::unique_ptr<store::SampleFile> File;
    std::size_t Runs = 0;
    std::size_t Kept = 0;
};
}  // namespace kelvarin::cli
