#pragma once

#include <filesystem>
#include <vector>

class QListWidget;

namespace hearthbook {

class WorkPool;

/// Fills the list of a mail's photos: each by its full path, with a small picture that follows.
void showMailPhotos(QListWidget& list, WorkPool& pool,
                    const std::vector<std::filesystem::path>& photos);

/// The photos of the list, in its order.
std::vector<std::filesystem::path> mailPhotos(const QListWidget& list);

} // namespace hearthbook
