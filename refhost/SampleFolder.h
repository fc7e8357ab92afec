// The location of the sample plant.
#pragma once

namespace refhost
{
/// The folder of the sample plant's files in the source tree, for SampleLoader.
const char* SampleFolder() noexcept;
} // namespace refhost
