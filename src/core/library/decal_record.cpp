#include "library/decal_record.h"

namespace zantor {
namespace {
const std::string kNoLine;
}

long DecalRecord::LineNumberOf(std::size_t index) const {
    if (headerLineNumber <= 0) {
        return 0;
    }
    return headerLineNumber + 1 + static_cast<long>(index);
}

const std::string& LineCursor::Peek() const {
    return AtEnd() ? kNoLine : (*lines_)[position_];
}

const std::string& LineCursor::Take() {
    if (AtEnd()) {
        return kNoLine;
    }
    return (*lines_)[position_++];
}

}  // namespace zantor
