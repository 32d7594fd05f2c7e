// SPDX-License-Identifier: MIT
#include "platform_wx/WxPictureLoader.h"

#include <wx/imagjpeg.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <utility>

#include "platform/Errors.h"
#include "platform/JpegHeader.h"

namespace velquist::platform {
namespace {

constexpr std::size_t kMostKept = 20;  ///< all cars of a mod year, and the built-in one
constexpr std::chrono::milliseconds kPatience(300);
constexpr int kMostShrunk = 8;  ///< the decoder goes no further

/// The factor by which a picture can be decoded smaller and still fills the box in one direction.
int ShrunkFor(PictureLoader::Size size, wxSize box)
{
  int factor = 1;
  while (factor < kMostShrunk &&
         (size.width >= 2 * factor * box.x || size.height >= 2 * factor * box.y))
    factor *= 2;
  return factor;
}

/// Ends when the decoder has taken too long. It then fills up the picture and is done.
class ImpatientStream final : public wxMemoryInputStream {
 public:
  using wxMemoryInputStream::wxMemoryInputStream;

  [[nodiscard]] bool GaveUp() const { return gave_up_; }

 protected:
  std::size_t OnSysRead(void* buffer, std::size_t size) override
  {
    gave_up_ = gave_up_ || Clock::now() > end_;
    if (!gave_up_) return wxMemoryInputStream::OnSysRead(buffer, size);
    m_lasterror = wxSTREAM_EOF;
    return 0;
  }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point end_ = Clock::now() + kPatience;
  bool gave_up_ = false;
};

/// An invalid image when the bytes are broken or take too long.
wxImage Shrunk(std::span<const std::byte> bytes, PictureLoader::Size size, int factor)
{
  const wxLogNull quiet;  // a broken picture is no news to the user
  ImpatientStream stream(bytes.data(), bytes.size());
  wxImage image;
  image.SetOption(wxIMAGE_OPTION_MAX_WIDTH, size.width / factor);
  image.SetOption(wxIMAGE_OPTION_MAX_HEIGHT, size.height / factor);
  wxJPEGHandler handler;
  if (!handler.LoadFile(&image, stream, false) || stream.GaveUp()) return {};
  return image;
}

}  // namespace

WxPictureLoader::WxPictureLoader(const FileSystem& files, const Resources& resources)
    : files_(files), resources_(resources), box_(1024, 768)
{
}

PictureLoader::Size WxPictureLoader::Load(std::string_view path)
{
  const auto& decoded = DecodeFile(path);
  return decoded.picture.IsOk() ? decoded.size : Size{};
}

void WxPictureLoader::Expect(wxSize box)
{
  box_ = box;
}

wxImage WxPictureLoader::Picture(std::string_view path, wxSize box)
{
  box_ = box;
  if (!path.empty()) {
    const auto& decoded = DecodeFile(path);
    if (decoded.picture.IsOk()) return decoded.picture;
  }
  return Decode(resources_.Picture()).picture;
}

const WxPictureLoader::Decoded& WxPictureLoader::DecodeFile(std::string_view path)
{
  try {
    return Decode(files_.ReadWhole(path));
  } catch (const FileError&) {
    return Decode({});  // nothing to show: as for a broken picture
  }
}

const WxPictureLoader::Decoded& WxPictureLoader::Decode(std::span<const std::byte> bytes)
{
  const auto size = ShowableJpegSize(bytes);
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const auto hash = std::hash<std::string_view>{}(text);
  const int shrunk = ShrunkFor(size, box_);
  const auto known = std::ranges::find_if(kept_, [&](const Decoded& kept) {
    return kept.hash == hash && kept.length == bytes.size() && kept.shrunk == shrunk;
  });
  if (known != kept_.end()) {
    std::rotate(kept_.begin(), known, known + 1);
    return kept_.front();
  }
  Decoded decoded{hash, bytes.size(), shrunk, size, {}};
  // A picture that is cut short would be decoded with a grey rest.
  if (size.width > 0 && !IsCutShort(bytes)) decoded.picture = Shrunk(bytes, size, shrunk);
  kept_.push_front(std::move(decoded));
  if (kept_.size() > kMostKept) kept_.pop_back();
  return kept_.front();
}

}  // namespace velquist::platform
