#include "ImageEdit.h"

#include "Regions.h"
#include "Resample.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace hearthbook {

namespace {

constexpr std::uint32_t paperWhite = 0xffffffff;

std::size_t bytesOf(const Picture& picture) {
  return static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height()) *
         sizeof(std::uint32_t);
}

Picture whiteSheet(PixelSize size) {
  Picture sheet(size);
  for (int y = 0; y < size.height; ++y)
    std::fill_n(sheet.writableRow(y), size.width, paperWhite);
  return sheet;
}

/// A region that was turned has other sides than its place: it is shown whole, on white.
Picture fittedInto(PixelSize place, const Picture& picture) {
  if (picture.size() == place)
    return picture;
  const double scale = std::min({1.0, static_cast<double>(place.width) / picture.width(),
                                 static_cast<double>(place.height) / picture.height()});
  const PixelSize size{std::max(1, static_cast<int>(picture.width() * scale)),
                       std::max(1, static_cast<int>(picture.height() * scale))};
  Picture sheet = whiteSheet(place);
  paste(sheet, size == picture.size() ? picture : resample(picture, size),
        (place.width - size.width) / 2, (place.height - size.height) / 2);
  return sheet;
}

std::vector<PictureElement> pieces(const std::vector<EditElement>& elements, PixelRect seenFrom) {
  std::vector<PictureElement> all;
  all.reserve(elements.size());
  for (const EditElement& element : elements)
    all.push_back(
        {element.shown, element.place.left - seenFrom.left, element.place.top - seenFrom.top});
  return all;
}

PixelRect turned(const PixelRect& mark, double degrees, PixelSize page) {
  const int right = page.width - mark.left - mark.width;
  const int below = page.height - mark.top - mark.height;
  if (degrees == edits::rotateLeft.value)
    return {mark.top, right, mark.height, mark.width};
  if (degrees == edits::rotateRight.value)
    return {below, mark.left, mark.height, mark.width};
  return {right, below, mark.width, mark.height};
}

bool isQuarterTurn(double degrees) {
  return degrees == edits::rotateLeft.value || degrees == edits::rotateRight.value;
}

/// What of a rectangle one does not see at a glance.
bool isNearly(const PixelRect& a, const PixelRect& b) {
  constexpr int fewPixels = 10;
  constexpr int smallShare = 50;
  const int reach = std::max(fewPixels, std::max(b.width, b.height) / smallShare);
  const auto near = [reach](int one, int other) { return std::abs(one - other) <= reach; };
  return near(a.left, b.left) && near(a.top, b.top) && near(a.left + a.width, b.left + b.width) &&
         near(a.top + a.height, b.top + b.height);
}

} // namespace

void ImageEdit::show(Picture picture) {
  now_ = {std::move(picture), {}};
  marks_.clear();
  steps_.clear();
  selection_.clear();
  view_.fit(now_.picture.size());
}

const EditElement* ImageEdit::elementAt(const PixelRect& place) const {
  const auto found = std::ranges::find(now_.elements, place, &EditElement::place);
  return found == now_.elements.end() ? nullptr : &*found;
}

/// A turned region stands smaller in its place than it is. A rectangle that was moved off that
/// place by a hair still means the region, not the small one on white.
const EditElement* ImageEdit::editedAt(const PixelRect& selected) const {
  if (const EditElement* exactly = elementAt(selected))
    return exactly;
  const auto found = std::ranges::find_if(now_.elements, [&](const EditElement& element) {
    return element.result.size() != element.place.size() && isNearly(selected, element.place);
  });
  return found == now_.elements.end() ? nullptr : &*found;
}

std::vector<RegionButton> ImageEdit::buttons() const {
  std::vector<RegionButton> all;
  for (const EditElement& element : now_.elements)
    all.push_back({element.place, true});
  const PixelRect region = selected();
  if (!region.isEmpty() && !editedAt(region))
    all.push_back({region, false});
  return all;
}

void ImageEdit::press(const RegionButton& button) {
  if (!button.reverts)
    return selection_.clear();
  if (!elementAt(button.place))
    return;
  remember({});
  std::erase_if(now_.elements, [&](const auto& element) { return element.place == button.place; });
}

ImageEdit::Task ImageEdit::edit(const EditOperation& operation) const {
  Task task = cutOut();
  task.operation = operation;
  return task;
}

ImageEdit::Task ImageEdit::crop() const { return {{}, picture(), elements(), selected(), {}}; }

ImageEdit::Task ImageEdit::cutOut() const {
  Task task{{}, picture(), elements(), selected(), {}};
  if (const EditElement* edited = editedAt(task.region)) {
    task.region = edited->place;
    task.again = edited->result;
  }
  return task;
}

ImageEdit::Task ImageEdit::whole() const { return {{}, picture(), elements(), {}, {}}; }

Picture ImageEdit::asSeen(const Task& task, WorkPool* pool) {
  if (task.again)
    return *task.again;
  if (task.region.isEmpty())
    return flattened(task.picture, pieces(task.elements, {}), {}, pool);
  return flattened(cropped(task.picture, task.region, pool), pieces(task.elements, task.region), {},
                   pool);
}

ImageEdit::Outcome ImageEdit::carryOut(const Task& task, WorkPool* pool) {
  const Picture seen = asSeen(task, pool);
  if (!task.operation)
    return {{}, task.region, seen, {}};
  Outcome outcome{task.operation, task.region, applied(*task.operation, seen, pool), {}};
  if (!task.region.isEmpty())
    outcome.shown = fittedInto(task.region.size(), outcome.picture);
  return outcome;
}

void ImageEdit::accept(Outcome outcome) {
  if (!outcome.shown.isNull()) {
    remember({});
    return put({outcome.region, std::move(outcome.picture), std::move(outcome.shown)});
  }
  const bool isCrop = !outcome.operation;
  const bool isTurn = outcome.operation && !outcome.operation->keepsPlaces();
  const double turn = isTurn ? outcome.operation->value : 0;
  const int left = isCrop ? outcome.region.left : 0;
  const int top = isCrop ? outcome.region.top : 0;
  remember({{}, -turn, left, top});
  const PixelSize before = now_.picture.size();
  carryMarks(turn, -left, -top, before);
  now_.picture = std::move(outcome.picture);
  now_.elements.clear(); // they are part of it now
  if (isCrop)
    selection_.clear();
  if (isCrop || isQuarterTurn(turn)) // of a square, or of all there is, too
    view_.resize(now_.picture.size());
}

void ImageEdit::put(EditElement element) {
  const auto before = std::ranges::find(now_.elements, element.place, &EditElement::place);
  if (before == now_.elements.end())
    now_.elements.push_back(std::move(element));
  else
    *before = std::move(element);
}

void ImageEdit::carryMarks(double turn, int right, int down, PixelSize before) {
  for (PixelRect& mark : marks_) {
    if (turn != 0)
      mark = turned(mark, turn, before);
    mark.left += right;
    mark.top += down;
  }
}

void ImageEdit::endSelecting() {
  if (selected().isEmpty())
    selection_.clear();
}

void ImageEdit::markSaved(const PixelRect& region) {
  marks_.push_back(region);
  selection_.clear();
}

void ImageEdit::remember(Step step) {
  step.before = now_;
  steps_.push_back(std::move(step));
  dropOldSteps();
}

/// The oldest go where there is no room for them, the last one never.
void ImageEdit::dropOldSteps() {
  std::size_t used = 0;
  std::size_t kept = 0;
  const Picture* above = &now_.picture;
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step, ++kept) {
    const State& state = step->before;
    used += state.picture.share() == above->share() ? 0 : bytesOf(state.picture);
    for (const EditElement& element : state.elements)
      used += bytesOf(element.result);
    if (used > undoBytes_ && kept > 0)
      break;
    above = &state.picture;
  }
  steps_.erase(steps_.begin(), steps_.end() - static_cast<std::ptrdiff_t>(kept));
}

void ImageEdit::undo() {
  if (steps_.empty())
    return;
  const PixelSize edited = now_.picture.size();
  Step step = std::move(steps_.back());
  steps_.pop_back();
  carryMarks(step.turnBack, step.moveRight, step.moveDown, edited);
  now_ = std::move(step.before);
  if (now_.picture.size() == edited)
    return;
  selection_.clear();
  view_.resize(now_.picture.size());
}

} // namespace hearthbook
