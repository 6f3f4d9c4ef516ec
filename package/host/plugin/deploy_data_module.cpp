#include "package/host/plugin/deploy_data_module.h"

#include <array>
#include <string_view>

namespace deployment {
namespace {

// A file on its way to a device, in colours that stand out on light and on dark ground.
constexpr std::array<std::string_view, 1> Images{
    "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" fill=\"none\" "
    "stroke=\"#7f8a96\" stroke-width=\"1.5\" stroke-linecap=\"round\" stroke-linejoin=\"round\">"
    "<path d=\"M1.75 1.75h5l2.5 2.5v2M1.75 1.75v12.5h4M8.75 8.75h5.5v5.5h-5.5z\"/>"
    "<path stroke=\"#3d8bd4\" d=\"M4.25 8h6M8.5 6l2 2-2 2\"/></svg>"};

} // namespace

TImageList TDMDeploy::TreeImages() {
  return Images;
}

} // namespace deployment
