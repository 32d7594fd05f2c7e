// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <cstddef>
#include <cstring>
#include <stdexcept>

#include <wx/image.h>
#include <wx/imagjpeg.h>
#include <wx/mstream.h>

#include "Canvas.h"
#include "Car.h"
#include "Icon.h"
#include "PngWriter.h"
#include "Scene.h"

namespace velquist::pictures {
namespace {

struct CarPicture {
  const char* path;
  int quality;
  Scene scene;
};

std::vector<CarPicture> CarPictures()
{
  const Color gold = Hex(0xC9A24B);
  const Color silver = Hex(0xB9BEC0);
  const Color green = Hex(0x1F5B46);
  const CarStyle ivory{.body = Hex(0xF2EBD9), .trim = green, .helmet = Hex(0xD9482B), .rim = gold};
  const CarStyle lotus{.body = Hex(0x1C6B44),
                       .trim = Hex(0xF0C53A),
                       .helmet = Hex(0x22324F),
                       .rim = gold,
                       .number = 5};
  const CarStyle winged{.body = Hex(0xB5352B),
                        .trim = Hex(0xEFE9DA),
                        .helmet = Hex(0x23427A),
                        .rim = silver,
                        .number = 1,
                        .wings = true};
  const CarStyle brabham{.shape = Shape::kClosedTail,
                         .body = Hex(0x1D4E4A),
                         .trim = Hex(0xD9A93B),
                         .helmet = Hex(0xF1EDE2),
                         .rim = silver,
                         .number = 2};
  const CarStyle brabham66{.shape = Shape::kOpenEngine,
                           .body = Hex(0x2B6350),
                           .trim = Hex(0xE0B84C),
                           .helmet = Hex(0x2A2E35),
                           .rim = silver,
                           .number = 8};
  const CarStyle brabham65{.shape = Shape::kClosedTail,
                           .body = Hex(0x2F7A86),
                           .trim = Hex(0xE8D9A8),
                           .helmet = Hex(0xB8342A),
                           .rim = silver,
                           .number = 4,
                           .tyre_size = 0.9};
  const CarStyle ferrari{.body = Hex(0xC6261C),
                         .trim = Hex(0xF2E7CF),
                         .helmet = Hex(0xEDEAE0),
                         .rim = gold,
                         .number = 3};
  const CarStyle coupe{.shape = Shape::kSportsCoupe,
                       .body = Hex(0x2C5C9A),
                       .trim = Hex(0xF4EFE2),
                       .helmet = Hex(0xD9482B),
                       .rim = silver,
                       .number = 6};
  return {
      {"assets/resources/about.jpg",
       92,
       {.width = 1024, .height = 753, .light = Afternoon(), .car = ivory, .seed = 1}},
      {"examples/GPL/cars/cars67/lotus/GEMPic.jpg",
       88,
       {.width = 640, .height = 400, .light = Morning(), .car = lotus, .seed = 2}},
      {"examples/GPL/cars/cars67/brabham/GEMPic.jpg",
       88,
       {.width = 600, .height = 450, .light = Evening(), .car = brabham, .seed = 3}},
      {"examples/GPL/cars/cars67/ferrari/GEMPic.jpg",
       88,
       {.width = 300,
        .height = 420,
        .car_share = 0.94,
        .ground_share = 0.74,
        .light = Afternoon(),
        .car = ferrari,
        .seed = 4}},
      {"examples/GPL/cars/cars66/brabham/GEMPic.jpg",
       88,
       {.width = 480, .height = 480, .light = Morning(), .car = brabham66, .seed = 5}},
      {"examples/GPL/cars/full65/brabham/GEMPic.jpg",
       88,
       {.width = 720,
        .height = 320,
        .car_share = 0.66,
        .light = Evening(),
        .car = brabham65,
        .seed = 6}},
      {"examples/GPL/cars/69Hwng/lotus/GEMPic.jpg",
       88,
       {.width = 640, .height = 480, .light = Afternoon(), .car = winged, .seed = 7}},
      {"examples/GPL/cars/carsGT/brabham/GEMPic.jpg",
       88,
       {.width = 640,
        .height = 360,
        .car_share = 0.8,
        .light = Evening(),
        .car = coupe,
        .seed = 8}},
  };
}

std::vector<std::uint8_t> EncodeJpeg(const Canvas& canvas, int quality)
{
  const std::vector<std::uint8_t> rgb = canvas.Rgb();
  wxImage image(canvas.Width(), canvas.Height(), false);
  std::memcpy(image.GetData(), rgb.data(), rgb.size());
  image.SetOption(wxIMAGE_OPTION_QUALITY, quality);
  wxMemoryOutputStream stream;
  wxJPEGHandler handler;
  if (!handler.SaveFile(&image, stream, false)) {
    throw std::runtime_error("the JPEG encoder failed");
  }
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(stream.GetLength()));
  stream.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

}  // namespace

std::vector<PictureFile> BuildPictures()
{
  std::vector<PictureFile> files;
  for (const CarPicture& picture : CarPictures()) {
    files.push_back({picture.path, EncodeJpeg(DrawScene(picture.scene), picture.quality)});
  }
  for (const int size : kIconSizes) {
    files.push_back({"assets/icon/velquist-" + std::to_string(size) + ".png",
                     EncodePng(size, size, DrawIcon(size).Rgba())});
  }
  files.push_back({"assets/icon/velquist.ico", IconFile()});
  const std::string svg = IconSvg();
  files.push_back({"assets/icon/velquist.svg", {svg.begin(), svg.end()}});
  return files;
}

}  // namespace velquist::pictures
