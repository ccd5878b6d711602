#include "platform/forms/image_list.h"

#include "platform/forms/errors.h"

namespace forms {

QIcon ImageList::image(int index) const {
    if (index == 0) return {};
    if (index < 0 || index > Count()) throw indexOutOfBounds();
    return images_[index - 1];
}

}  // namespace forms
