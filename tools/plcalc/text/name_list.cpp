#include "text/name_list.h"

namespace tool {

std::string NameList::text() const
{
    std::string list;
    for (const std::string& name : kept_)
        list += (list.empty() ? "" : ", ") + name;
    return count_ > kept_.size() ? list + ", ..." : list;
}

}  // namespace tool
