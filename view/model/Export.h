// Samples as files of other programs.
#pragma once

#include <atomic>
#include <string>

#include "host/ModuleLoader.h"
#include "view/model/FileImport.h"
#include "view/model/PlotModel.h"

namespace kelvarin::view {
// The samples of all plotted signals within what is visible, as a text file: times to the nanosecond in the
// clock's style, then a column for each signal, named with its unit; empty cells where a signal has no sample
// at a time. Fields have commas between them, and quotes where they need some. Empty if there are no samples.
// Ends early once `cancel` is true.
std::string CsvOf(const PlotModel& model, const std::atomic<bool>& cancel);

// Reads a file once more and writes every sample to an HDF5 file. Empty, or why that failed, in one clause.
std::string ExportHdf5(const ModuleLoader& module, const ImportOrder& order, const std::u16string& path);
}  // namespace kelvarin::view
