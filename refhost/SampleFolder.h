// The location of the sample plant.
#pragma once

#include <filesystem>

namespace refhost
{
/// The folder of the sample plant's files, which lies beside the program, for SampleLoader.
std::filesystem::path SampleFolder();
} // namespace refhost
