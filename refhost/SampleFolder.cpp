#include "SampleFolder.h"

namespace refhost
{
const char* SampleFolder() noexcept
{
    return QP_SAMPLE_DIR;
}
} // namespace refhost
