#pragma once

#include <map>
#include <string>

namespace gkSamples {

/// The sample files by name. The same on every run; samples/README.md tells what is true of them.
std::map<std::string, std::string> sampleFiles();

} // namespace gkSamples
