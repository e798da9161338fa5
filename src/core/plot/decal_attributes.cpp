#include "plot/decal_attributes.h"

#include <algorithm>

namespace zantor {

int ListedAttributeCount(bool printAttributes, const AttributeList& list) {
    if (!printAttributes) {
        return 0;
    }
    return static_cast<int>(std::count_if(
        list.begin(), list.end(), [](const AttributeEntry& entry) { return entry.checked; }));
}

}  // namespace zantor
