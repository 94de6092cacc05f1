#include "PageDesign.h"

#include "Numbers.h"

#include <array>

namespace hearthbook {

namespace {

/// Frames are drawn on a surface of 1080 by 900 standard pixels.
constexpr TwipsRect drawn(double left, double top, double width, double height) {
  return {left * twipsPerPixel, top * twipsPerPixel, width * twipsPerPixel, height * twipsPerPixel};
}

constexpr std::array wedding{
    DesignBox{"Bride", "Bride", drawn(240, 135, 295, 430), true},
    DesignBox{"Groom", "Groom", drawn(545, 135, 295, 430), true},
    DesignBox{"Bride Dad", "BrideDad", drawn(20, 580, 250, 300), true},
    DesignBox{"Bride Mom", "BrideMom", drawn(280, 580, 250, 300), true},
    DesignBox{"Groom Dad", "GroomDad", drawn(550, 580, 250, 300), true},
    DesignBox{"Groom Mom", "GroomMom", drawn(810, 580, 250, 300), true},
};

constexpr std::array newBaby{
    DesignBox{"Baby", "Baby", drawn(300, 135, 480, 500), true},
    DesignBox{"Mom", "Mom", drawn(20, 290, 260, 345), true},
    DesignBox{"Dad", "Dad", drawn(800, 290, 260, 345), true},
    DesignBox{"Born", "Born", drawn(240, 655, 600, 105), false},
    DesignBox{"Greeting", "Greeting", drawn(240, 775, 600, 105), false},
};

constexpr std::array birthday{
    DesignBox{"Birthday Child", "Child", drawn(240, 135, 600, 420), true},
    DesignBox{"Cake", "Cake", drawn(20, 570, 340, 310), true},
    DesignBox{"Guests", "Guests", drawn(370, 570, 340, 310), true},
    DesignBox{"Presents", "Presents", drawn(720, 570, 340, 310), true},
};

constexpr std::array vacation{
    DesignBox{"Best Day", "BestDay", drawn(240, 135, 600, 365), true},
    DesignBox{"On the Way", "OnTheWay", drawn(20, 515, 340, 365), true},
    DesignBox{"Most Fun", "MostFun", drawn(370, 515, 340, 365), true},
    DesignBox{"Last Evening", "LastEvening", drawn(720, 515, 340, 365), true},
};

constexpr std::array reunion{
    DesignBox{"Everybody", "Everybody", drawn(240, 135, 600, 360), true},
    DesignBox{"Where and When", "WhereAndWhen", drawn(240, 505, 600, 105), false},
    DesignBox{"Grandparents", "Grandparents", drawn(20, 620, 340, 260), true},
    DesignBox{"Oldest", "Oldest", drawn(370, 620, 340, 260), true},
    DesignBox{"Youngest", "Youngest", drawn(720, 620, 340, 260), true},
};

constexpr std::array designs{
    PageDesign{"Wedding", wedding},   PageDesign{"New Baby", newBaby},
    PageDesign{"Birthday", birthday}, PageDesign{"Vacation", vacation},
    PageDesign{"Reunion", reunion},
};

constexpr double margin = 14 * twipsPerPixel;
constexpr double captionHeight = 36 * twipsPerPixel;
constexpr double textHeight = 46 * twipsPerPixel;
constexpr double gap = 10 * twipsPerPixel;

} // namespace

std::span<const PageDesign> pageDesigns() { return designs; }

TwipsRect photoInFrame(TwipsSize frame) {
  return {margin, captionHeight, frame.width - 2 * margin,
          frame.height - captionHeight - gap - textHeight - margin};
}

TwipsRect textInFrame(TwipsSize frame, bool hasPhoto) {
  return {margin, hasPhoto ? frame.height - margin - textHeight : captionHeight,
          frame.width - 2 * margin, textHeight};
}

PixelSize photoPixels(const DesignBox& box) {
  const TwipsRect photo = photoInFrame({box.frame.width, box.frame.height});
  return {static_cast<int>(roundHalfEven(photo.width / twipsPerPixel)),
          static_cast<int>(roundHalfEven(photo.height / twipsPerPixel))};
}

} // namespace hearthbook
