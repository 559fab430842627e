#pragma once

#include <map>
#include <string>
#include <string_view>

namespace platform {

/// Pictures by key. A picture is named by its file in platform/pictures/, without the ending.
class ImageList {
 public:
  ImageList(std::initializer_list<std::pair<const std::string, std::string>> pictures)
      : pictures_(pictures) {}

  /// The resource path of a picture, empty for a key that the list doesn't hold.
  [[nodiscard]] std::string path(const std::string& key) const {
    const auto found = pictures_.find(key);
    return found == pictures_.end() ? std::string() : ":/pictures/" + found->second + ".svg";
  }

 private:
  std::map<std::string, std::string> pictures_;
};

}  // namespace platform
