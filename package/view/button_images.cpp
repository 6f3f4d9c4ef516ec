#include "package/view/button_images.h"

#include <array>

namespace deployment {
namespace {

#define SVG_OPEN "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 16 16\" fill=\"none\" "
#define SVG_LINE "stroke-width=\"1.5\" stroke-linecap=\"round\" stroke-linejoin=\"round\">"
#define SVG_GRAY SVG_OPEN "stroke=\"#7b8693\" " SVG_LINE
#define SVG_END "</svg>"
#define SHEET "<path d=\"M3 1.75h6l3 3v4M3 1.75v12.5h4\"/>"
#define BOX "<path d=\"M2.75 2.75h10.5v10.5h-10.5z\"/>"
#define TWO_BOXES "<path d=\"M5 1.75h9.25v9.25M1.75 5h9.25v9.25h-9.25z\"/>"
#define CHECK(d) "<path stroke=\"#2d9754\" stroke-width=\"2\" d=\"" d "\"/>"
#define CROSS(d) "<path stroke=\"#db5c58\" stroke-width=\"2\" d=\"" d "\"/>"
#define BLUE(d) "<path stroke=\"#3a89d3\" d=\"" d "\"/>"

constexpr std::array<std::string_view, 14> Images{
    // 0: a sheet with a plus: add files
    SVG_GRAY SHEET CHECK("M12 9.5v5M9.5 12h5") SVG_END,
    // 1: a sheet with a cross: delete files
    SVG_GRAY SHEET CROSS("M10 10l4 4M14 10l-4 4") SVG_END,
    // 2: a parcel with a plus: add featured files
    SVG_GRAY
    "<path d=\"M2 4.5l5-2.75 5 2.75v4M2 4.5v5.5l5 2.75M2 4.5l5 2.75 5-2.75M7 7.25v5.5\"/>" CHECK(
        "M12 9.5v5M9.5 12h5") SVG_END,
    // 3: an arrow that leaves for a device: deploy
    SVG_GRAY "<path d=\"M1.75 10v4.25h12.5v-4.25\"/>" BLUE("M8 10.75v-8.5M4.75 5.25l3.25-3.25 "
                                                           "3.25 3.25") SVG_END,
    // 4: two arrows in a circle: reconcile
    SVG_GRAY BLUE("M13.5 6.5a5.75 5.75 0 0 0-10.5-1.5M3 1.75v3.25h3.25M2.5 9.5a5.75 5.75 0 0 0 "
                  "10.5 1.5M13 14.25v-3.25h-3.25") SVG_END,
    // 5: a plug and its socket: connect
    SVG_GRAY "<path d=\"M1.75 8h3M5 4.75h3v6.5h-3zM8 6.25h2M8 9.75h2\"/>" BLUE(
        "M11 4.75h1a2.25 2.25 0 0 1 2.25 2.25v2a2.25 2.25 0 0 1-2.25 2.25h-1z") SVG_END,
    // 6: three dots: choose
    SVG_OPEN
    "stroke=\"none\"><g fill=\"#7b8693\"><circle cx=\"3\" cy=\"8\" r=\"1.5\"/>"
    "<circle cx=\"8\" cy=\"8\" r=\"1.5\"/><circle cx=\"13\" cy=\"8\" r=\"1.5\"/></g>" SVG_END,
    // 7: an arrow that turns back: revert
    SVG_GRAY "<path stroke=\"#be7423\" d=\"M5.5 2l-3.25 3.25 3.25 3.25M2.5 5.25h6.5a4.25 4.25 0 0 "
             "1 0 8.5h-5\"/>" SVG_END,
    // 8: ticked boxes: check all
    SVG_GRAY TWO_BOXES CHECK("M4 9.5l2 2 3.5-4") SVG_END,
    // 9: empty boxes: uncheck all
    SVG_GRAY TWO_BOXES SVG_END,
    // 10: a ticked box: check the selection
    SVG_GRAY BOX CHECK("M5 8l2.25 2.5 4-5") SVG_END,
    // 11: an empty box: uncheck the selection
    SVG_GRAY BOX SVG_END,
    // 12: a folder with a pen: change the remote path
    SVG_GRAY "<path d=\"M7 12.25h-5.25v-9h4l1.5 2h6v2\"/>" BLUE("M8.5 14l.5-2 4-4 1.5 1.5-4 4z")
        SVG_END,
    // 13: a sheet over another with a pen: change overwrite
    SVG_GRAY "<path d=\"M4.75 4.5v-2.75h8v5M1.75 4.5h7v3M1.75 4.5v9.75h5\"/>" BLUE(
        "M8.5 14l.5-2 4-4 1.5 1.5-4 4z") SVG_END,
};

#undef SVG_OPEN
#undef SVG_LINE
#undef SVG_GRAY
#undef SVG_END
#undef SHEET
#undef BOX
#undef TWO_BOXES
#undef CHECK
#undef CROSS
#undef BLUE

} // namespace

TImageList ButtonImages() {
  return Images;
}

} // namespace deployment
