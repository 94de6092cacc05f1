#include "BatchUpdate.h"

#include "Connection.h"
#include "NamesInPhoto.h"
#include "PhotoIdentity.h"

#include <exception>
#include <span>

namespace hearthbook {

namespace {

void write(Recordset& photo, const BatchChanges& changes) {
  if (!changes.eventId.isNull())
    photo.Collect("EventID", changes.eventId);
  if (!changes.placeId.isNull())
    photo.Collect("PlaceID", changes.placeId);
  if (!changes.description.empty())
    photo.Collect("Description", changes.description);
  if (!changes.year.isNull())
    photo.Collect("Year", changes.year);
  if (!changes.people.empty())
    photo.Collect("NamesInPhoto", withPeople(photo.Collect("NamesInPhoto"), changes.people));
}

void change(Recordset& photo, const BatchChanges& changes) {
  try {
    write(photo, changes);
    photo.Update();
  } catch (...) {
    photo.CancelUpdate(); // else the edit of the refused row would be tried once more
    throw;
  }
}

/// How many of the photos are changed now: those that fitted once fit again, unless it was the
/// end of the transaction that found no room.
std::size_t updateAgain(Connection& connection, std::span<const std::string> ids,
                        const BatchChanges& changes) {
  while (!ids.empty()) {
    std::size_t done = 0;
    try {
      connection.transaction([&] {
        Recordset photo(connection);
        for (const std::string& id : ids) {
          photo.Open("SELECT * FROM PhotoAlbum WHERE " + photosCriterion("PictureID", {id}));
          change(photo, changes);
          ++done;
        }
      });
      return done;
    } catch (const std::exception&) {
      ids = ids.first(done < ids.size() ? done : done / 2);
    }
  }
  return 0;
}

} // namespace

Value withPeople(const Value& namesInPhoto, const std::vector<std::int64_t>& people) {
  const std::string names = namesInPhoto.toText();
  std::string added;
  for (const std::int64_t person : people)
    if (const std::string key = personKey(person);
        namesInPhoto.isNull() || names.find(key) == std::string::npos)
      added += key + ",";
  return names + added;
}

BatchReport updatePhotos(const Recordset& rsSearch, const std::vector<std::int64_t>& positions,
                         const BatchChanges& changes) {
  const auto photos = rsSearch.Clone();
  BatchReport run;
  BatchWalk walk;
  try {
    photos->connection().transaction([&] {
      walk = walkThrough(*photos, positions, [&] {
        run.ids.push_back(photos->Collect("PictureID").toText());
        change(*photos, changes);
      });
    });
    run.failure = walk.failure;
  } catch (const std::exception& failure) {
    run.wasTakenBack = true;
    run.failure = walk.failure.value_or(failure.what()); // what was said first is the cause
    walk.done = updateAgain(photos->connection(), std::span(run.ids).first(walk.done), changes);
  }
  run.ids.resize(walk.done);
  return run;
}

} // namespace hearthbook
