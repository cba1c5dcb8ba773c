#include "SampleFiles.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string contents(const std::string& sPath)
{
    std::ifstream file(sPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool write(const std::string& sPath, const std::string& sText)
{
    std::ofstream file(sPath, std::ios::binary);
    file << sText;
    return static_cast<bool>(file.flush());
}

} // namespace

/// gksamples FOLDER writes the sample files; gksamples --check FOLDER compares them with those in the folder.
int main(int argc, char** argv)
{
    const bool bCheck = argc == 3 && std::strcmp(argv[1], "--check") == 0;
    if (argc != 2 && !bCheck) {
        std::fprintf(stderr, "usage: gksamples [--check] FOLDER\n");
        return 2;
    }
    int iFailures = 0;
    for (const auto& [sName, sText] : gkSamples::sampleFiles()) {
        const std::string sPath = std::string(argv[argc - 1]) + '/' + sName;
        const bool bOk = bCheck ? contents(sPath) == sText : write(sPath, sText);
        if (!bOk) {
            std::fprintf(stderr, "%s: %s\n", sPath.c_str(),
                         bCheck ? "differs from what is generated" : "cannot be written");
            ++iFailures;
        }
    }
    return iFailures == 0 ? 0 : 1;
}
