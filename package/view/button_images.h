// The images of the tool bar and of the cell editors.
#pragma once

#include "package/host/api/toolbars.h"

namespace deployment {

/// Images 0 to 13. Their colours stand out on light and on dark ground.
TImageList ButtonImages();

} // namespace deployment
