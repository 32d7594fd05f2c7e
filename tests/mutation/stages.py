"""Which tests are run against a mutant, the likeliest first."""

import dataclasses
import pathlib
import re

from mutants import ROOT

PROGRAM = "PROGRAM"  # in a command: the program with the mutant in it

# These take seconds each.
SLOW = ["RoundTrip.*", "AllOrNothing.*", "HistoryProperty.*", "EditingProperty.*",
        "*FailingCommand*", "PicturesOfCars.*", "HistoryOfEditing.*", "OddMachines.*"]

# These measure time, or read the tree and not the program.
NEVER = ["*LargeInput*", "OddMachines.TwentyThousandPlayersAreListedInLessThanASecond", "LibrarySpeed.*",
         "ReliabilityDoc.*", "Architecture*.*"]

UNIT, SCENARIO, WINDOW = ("tests/velquist_tests", "tests/runner/velquist_scenario",
                          "tests/window/velquist_window_tests")
DISPLAY = ["scripts/with-display", "-s"]

# Suites of tests/window, and directories or files of tests/scenarios, for sources of the front end.
FRONT_END = {
    "ChartBox": ("ChartReading.*:Compare*.*:Accessibility.*", ["charts"]),
    "ChartPainting": ("ChartPainting.*:ChartReading.*:Compare*.*:GearingWindow.*", ["charts"]),
    "Clipboard": ("Compare*.*:GearingWindow.*", []),
    "ComparisonLines": ("Compare*.*", ["reference"]),
    "DifferenceCount": ("Compare*.*:Status.*:Mark*.*:DifferenceWords.*", ["reference"]),
    "DifferenceTexts": ("DifferenceWords.*:ToolTips.*", []),
    "FileDrop": ("Behaviour.*:FileDialogs.*:Status.*", []),
    "FitToDesktop": ("Desktop.*:Behaviour.ACopy*:*Fit.*:*Frames.*", []),
    "FrmColumns": ("LibraryWindow.*", []),
    "FrmCompare": ("Compare*.*", ["reference"]),
    "FrmGearing": ("GearingWindow.*:SideWindows.*", ["gearing"]),
    "FrmHelp": ("Help*.*", ["face/help.scn"]),
    "FrmInstallDelete": ("Mnemonics.*:Behaviour.*:Accessibility.*", ["lifecycle/delete-installation.scn"]),
    "FrmLibrary": ("LibraryWindow.*", ["library"]),
    "FrmLibraryShowing": ("LibraryWindow.*", ["library"]),
    "FrmMain": ("Mnemonics.*:Behaviour.*:Status.*:Mark.*:Accessibility.*:*Frames.*", ["face", "editing/steps-fine.scn"]),
    "FrmModYear": ("Accessibility.*:Behaviour.*", ["files/year-by-question.scn", "lifecycle"]),
    "GearingChartBox": ("GearingWindow.*", ["gearing"]),
    "LibraryLines": ("LibraryWindow.*", ["library"]),
    "ManualStyle": ("Help*.*", []),
    "MarkColour": ("Mark*.*:Contrast.*", []),
    "Menus": ("Accessibility.*:Behaviour.*:Rows.*", ["face", "files/new-and-format.scn"]),
    "PictureBoxes": ("Behaviour.*:ChartReading.*:Compare*.*:Accessibility.*", ["face", "charts"]),
    "ProgramDialogs": ("Help*.*:FileDialogs.*", ["files/year-by-question.scn", "face/help.scn"]),
    "RowKeys": ("RowKeys.*", []),
    "SideWindow": ("SideWindows.*:Compare*.*:GearingWindow.*:LibraryWindow.*", ["reference"]),
    "SideWindows": ("Compare*.*:GearingWindow.*:LibraryWindow.*", ["reference"]),
    "StepButton": ("StepButtons.*:Accessibility.*", ["editing/steps-fine.scn"]),
    "UnsavedMark": ("Status.*:Accessibility.*", []),
    "ValueField": ("ValueFields.*", []),
    "ValueTips": ("ToolTips.*:DifferenceWords.*", []),
    "Widgets": ("Accessibility.*:Rows.*:Behaviour.*:ToolTips.*:Letters.*:*Frames.*:*Fit.*:TextSize.*", ["face", "editing"]),
    "ListChoiceGtk": ("ListsByKey.*:Accessibility.*", ["lifecycle/player-and-track.scn"]),
    "TypeAhead": ("ListsByKey.*", []),
    "MessageBoxGtk": ("MessageBoxes.*", []),
    "NativeLookGtk": ("Accessibility.*:Status.*:Mark.*:ToolTips.*:Letters.*:FirstFrame.*:*Frames.*:*Fit.*:TextSize.*", []),
    "SpokenGtk": ("Accessibility.*:Status.*:Difference.*", []),
    "ProgramIconsElf": ("Icons.*", []),
    "WxDialogs": ("FileDialogs.*", []),
    "WxPictureLoader": ("Behaviour.*", ["face/car-pictures.scn"]),
    "WxSystem": ("Behaviour.*:Desktop.*", []),
    "WxText": ("Status.*:FileDialogs.*:Help*.*", ["face"]),
}


@dataclasses.dataclass
class Stage:
    name: str
    program: str
    kind: str  # "unit", "scenarios" or "script"
    command: list
    chosen: list  # filters of suites, or paths
    seconds: int  # of the processor, more than it can need
    left_out: list = ()

    def command_of(self, only):
        """The command for these failures alone, or for all."""
        if self.kind == "unit":
            kept, left_out = ":".join(only or self.chosen), ":".join([*NEVER, *self.left_out])
            return [*self.command, f"--gtest_filter={kept}-{left_out}", *([] if only else FAIL_FAST)]
        if self.kind == "scenarios":
            return [*self.command, *(only or self.chosen)]
        return self.command

    def failures(self, text):
        if self.kind == "unit":
            return sorted(set(re.findall(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", text, re.M)))
        if self.kind == "scenarios":
            return sorted(set(re.findall(r"(tests/scenarios/[\w/-]+\.scn)\S* ", text)) &
                          {str(path.relative_to(ROOT)) for path in
                           (ROOT / "tests/scenarios").rglob("*.scn")})
        return []


FAIL_FAST = ["--gtest_fail_fast"]


def suites_of(stem):
    """The suites of the unit tests that have a source's name, or use its header."""
    named, using = [], []
    for path in sorted((ROOT / "tests/unit").glob("*.cpp")):
        text = path.read_text()
        suites = sorted({f"*{suite}.*" for suite in re.findall(r"^TEST(?:_[FP])?\((\w+)", text, re.M)})
        if path.name.startswith(stem):
            named += suites
        elif f"/{stem}.h\"" in text:
            using += suites
    return named + using


def of(file, front_end, whole):
    """The stages for a mutant of this source: those that are likely to tell, or the whole."""
    stem = pathlib.Path(file).stem
    scenarios = lambda name, paths, ui, seconds: Stage(
        name, SCENARIO, "scenarios",
        [*DISPLAY, "1280x1024", PROGRAM, "--ui"] if ui else [PROGRAM],
        [f"tests/scenarios/{path}".rstrip("/") for path in paths], seconds)
    window = lambda name, filters, seconds: Stage(
        name, WINDOW, "unit", [*DISPLAY, "3840x2160", PROGRAM], filters, seconds)
    unit = lambda name, filters, seconds: Stage(name, UNIT, "unit", [PROGRAM], filters, seconds)
    if not front_end:
        near = suites_of(re.sub("Posix$", "", stem))
        found = [unit("the tests of its name", near, 45)] if near else []
        if file.split("/")[1] != "cli":  # which is not in the program that runs them
            found.append(scenarios("scenarios", [""], False, 20))
        found.append(Stage("unit tests", UNIT, "unit", [PROGRAM], ["*"], 45, SLOW))
        found.append(unit("long unit tests", SLOW, 90))
        if file.split("/")[1] in ("cli", "library", "export"):
            found += [Stage(name, "src/cli/velquist-cli", "script", [f"tests/scripts/{name}-test", PROGRAM], [], 60)
                      for name in ("cli", "cli-use")]
        return found
    filters, paths = FRONT_END.get(stem, ("", []))
    found = [window("the tests of its name", [filters], 60)] if filters else []
    if paths:
        found.append(scenarios("its scenarios", paths, True, 60))
    if stem == "WxPictureLoader":
        found.append(unit("pictures of cars", ["PicturesOfCars.*"], 60))
    if stem == "Program":
        found.append(Stage("program tests", "tests/window/velquist_program_tests", "unit",
                           [*DISPLAY, "1280x1024", PROGRAM], ["*"], 20))
    if whole or not found:
        found.append(scenarios("scenarios", [""], True, 150))
        found.append(window("window tests", ["*"], 180))
        found += [Stage(name, "src/velquist", "script",
                        [*DISPLAY, "1280x1024", f"tests/window/{name}-test", PROGRAM], [], 60)
                  for name in ("keyboard", "screen-reader", "walk")]
    return found
