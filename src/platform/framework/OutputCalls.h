// The system's half of standard output. Each call gives 0 or the number of the system's error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Makes std::cout write through the calls below; its header is StandardStreams.h.
void WatchOutput();

// Writes all of the bytes.
int WriteOutput(const char* data, std::size_t size);

// Failures that the system reports when a file is closed. The stream stays open.
int LateOutputFailure();

// True for the error of a pipe that nobody reads.
bool IsReaderGone(int error);

std::string DescribeOutputError(int error);

// The bytes written to the file that standard output goes to; -1 if it goes elsewhere.
std::int64_t OutputPosition();

// Cuts that file to a position told by OutputPosition.
void CutOutput(std::int64_t position);
