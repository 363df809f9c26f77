#pragma once

#include <QImage>

namespace larkspan::ui {

/// With LARKSPAN_PICTURES set to a folder, the pictures that the tests look at are kept there.
void keepPicture(const QImage& picture, const char* name);

} // namespace larkspan::ui
