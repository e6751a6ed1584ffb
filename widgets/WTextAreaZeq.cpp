#include "widgets/WTextAreaZeq.h"

void WTextAreaZeq::setMaxLength(unsigned characters) {
    mMaxLength = characters;
    setAttributeValue("maxlength", std::to_string(mMaxLength));
}
