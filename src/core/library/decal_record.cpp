#include "library/decal_record.h"

namespace zantor {
namespace {
const std::string kNoLine;
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
