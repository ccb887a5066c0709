#include "answers/answer.h"

namespace tool {

Answer answer(const Parcel& parcel, const Asked& asked)
{
    return {parcel, asked, divide_in_print(parcel.ring, asked)};
}

}  // namespace tool
