// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <string>

#include "cli/Commands.h"
#include "cli/Facts.h"
#include "cli/OpenedSetup.h"
#include "cli/WrittenFiles.h"
#include "edit/Reference.h"
#include "export/SetupSheet.h"
#include "library/Row.h"

namespace velquist::cli {
namespace {

std::optional<edit::Reference> ReadReference(const Session& session)
{
  const auto& path = session.Options().reference;
  if (!path) return std::nullopt;
  const auto setup = OpenSetup(session, *path);
  LoadLists(*setup);
  return edit::ReferenceOf(setup->car, edit::ReferenceSource::kFile, *path,
                           setup->identity.GearCount());
}

}  // namespace

int Sheet(Session& session)
{
  const auto reference = ReadReference(session);
  return WriteForEach(session, [&](OpenedSetup& setup) {
    LoadLists(setup);
    const auto name = library::FileNameOf(setup.file.path);
    const auto place = library::PlaceOf(setup.file.path);
    const auto layout = LayoutText(setup.file);
    text_export::SheetSubject subject;
    subject.file_name = name;
    subject.chassis_name = setup.CarName();
    subject.layout = layout;
    if (place) {
      subject.player = place->player;
      subject.track = place->track;
    }
    if (reference) subject.reference = library::FileNameOf(reference->path);
    return WrittenFile{
        text_export::SheetFileName(name),
        text_export::SetupSheet(setup.car, subject, reference ? &*reference : nullptr,
                                session.Options().units)};
  });
}

}  // namespace velquist::cli
