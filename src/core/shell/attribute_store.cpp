#include "shell/attribute_store.h"

#include <cstddef>
#include <string>

namespace zantor {
namespace {

std::string Numbered(std::string_view name, std::size_t number) {
    return std::string(name) + std::to_string(number);
}

}  // namespace

void LoadAttributes(AttributeList& attributes, const SettingsStore& store) {
    const std::int32_t count = store.ReadInteger(kAttributeListSection, "AttrCount", 0);
    if (count <= 0) {
        return;
    }
    attributes.clear();
    for (std::size_t n = 1; n <= static_cast<std::size_t>(count); ++n) {
        attributes.push_back(
            {store.ReadString(kAttributeListSection, Numbered("AttrName", n), ""),
             store.ReadBool(kAttributeListSection, Numbered("AttrChecked", n), false)});
    }
}

void SaveAttributes(const AttributeList& attributes, SettingsStore& store) {
    store.WriteInteger(kAttributeListSection, "AttrCount",
                       static_cast<std::int32_t>(attributes.size()));
    for (std::size_t n = 1; n <= attributes.size(); ++n) {
        store.WriteString(kAttributeListSection, Numbered("AttrName", n), attributes[n - 1].name);
        store.WriteBool(kAttributeListSection, Numbered("AttrChecked", n),
                        attributes[n - 1].checked);
    }
    store.Sync();
}

}  // namespace zantor
