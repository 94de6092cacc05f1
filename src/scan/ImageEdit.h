#pragma once

#include "EditOperation.h"
#include "ImageView.h"
#include "RegionSelection.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace hearthbook {

/// A region that was put right on its own. It lies above the picture until that is written.
struct EditElement {
  PixelRect place; ///< of the region
  Picture result;  ///< what became of it; a turned one has other sides
  Picture shown;   ///< the result as it stands in its place
};

/// What lies on the picture for the user to press: 45 by 20 on the screen at any zoom.
struct RegionButton {
  static constexpr TwipsSize size{45.0 * twipsPerPixel, 20.0 * twipsPerPixel};

  PixelRect place;      ///< the region to which it belongs
  bool reverts = false; ///< "Revert" for a region that was edited, else "Close"

  bool operator==(const RegionButton&) const = default;
};

/// A page or photo under work, without a screen: the picture, the edited regions above it, the
/// selection, the marks of what was saved already, how it is looked at, and the way back.
///
/// The work on pixels is told as a Task, carried out wherever there is time, and taken over by
/// accept(). Tasks share the pixels; they own what they need.
class ImageEdit {
public:
  struct Task {
    std::optional<EditOperation> operation; ///< none: crop
    Picture picture;
    std::vector<EditElement> elements;
    PixelRect region;             ///< empty: the whole picture
    std::optional<Picture> again; ///< what became of the region so far
  };
  struct Outcome {
    std::optional<EditOperation> operation;
    PixelRect region;
    Picture picture; ///< of the region, or the whole
    Picture shown;   ///< of a region: fitted into its place
  };

  explicit ImageEdit(std::size_t undoBytes = std::size_t{1} << 30) : undoBytes_(undoBytes) {}

  void show(Picture picture); ///< another page or photo: nothing of the last one stays

  [[nodiscard]] bool isEmpty() const { return now_.picture.isNull(); }
  [[nodiscard]] const Picture& picture() const { return now_.picture; }
  [[nodiscard]] const std::vector<EditElement>& elements() const { return now_.elements; }
  [[nodiscard]] const std::vector<PixelRect>& savedMarks() const { return marks_; }
  [[nodiscard]] ImageView& view() { return view_; }
  [[nodiscard]] const ImageView& view() const { return view_; }
  [[nodiscard]] RegionSelection& selection() { return selection_; }
  [[nodiscard]] const RegionSelection& selection() const { return selection_; }
  /// The selection in whole pixels of the picture; empty without one.
  [[nodiscard]] PixelRect selected() const { return selection_.mappedTo(picture().size()); }
  void endSelecting(); ///< a rectangle that has nothing of the picture is none

  [[nodiscard]] std::vector<RegionButton> buttons() const;
  void press(const RegionButton& button);

  /// The operation on the selected region, or on the whole picture without one.
  [[nodiscard]] Task edit(const EditOperation& operation) const;
  [[nodiscard]] Task crop() const; ///< to the selection, which must be there
  static Outcome carryOut(const Task& task, WorkPool* pool = nullptr);
  void accept(Outcome outcome);

  /// The selected region as it is seen, for a photo of its own: the task's `region`.
  [[nodiscard]] Task cutOut() const;
  static Picture asSeen(const Task& task, WorkPool* pool = nullptr);
  /// The whole picture with all that was edited.
  [[nodiscard]] Task whole() const;

  void markSaved(const PixelRect& region); ///< the selection ends, the region stays marked

  [[nodiscard]] bool canUndo() const { return !steps_.empty(); }
  void undo();

private:
  struct State {
    Picture picture;
    std::vector<EditElement> elements;
  };
  /// The state before an edit, and how what lies on the picture finds its place there again.
  struct Step {
    State before;
    double turnBack = 0;
    int moveRight = 0;
    int moveDown = 0;
  };

  [[nodiscard]] const EditElement* elementAt(const PixelRect& place) const;
  [[nodiscard]] const EditElement* editedAt(const PixelRect& selected) const;
  void remember(Step step);
  void dropOldSteps();
  void put(EditElement element);
  void carryMarks(double turn, int right, int down, PixelSize before);

  State now_;
  std::vector<PixelRect> marks_; ///< what was saved stays saved, whatever is undone
  std::vector<Step> steps_;      ///< the oldest first
  std::size_t undoBytes_;
  RegionSelection selection_;
  ImageView view_;
};

} // namespace hearthbook
