// All that a run gives as text, to compare runs.
#pragma once

#include <string>

#include "host/HostSession.h"

// Result, messages, columns, signals and samples.
std::string DescribeRun(kelvarin::HostSession& session, const kelvarin::RunResult& result);
