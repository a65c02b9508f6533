#include "tests/unit/samples.h"

namespace qz7 {

std::string SamplePath(const std::string& name) { return QZ7_SAMPLES "/" + name; }

}  // namespace qz7
