// SPDX-License-Identifier: MIT
#include <gtk/gtk.h>

#include <algorithm>
#include <array>
#include <map>
#include <mutex>
#include <string>

#include "platform_wx/NativeLook.h"

namespace velquist::platform {
namespace {

constexpr char kTight[] = "velquist-tight";
constexpr char kAtOnce[] = "velquist-at-once";

// Sizes are those of the control's own font, so that they shrink with a small screen; but what
// stands around a frame's label is not, since the label is placed before it knows of another font.
constexpr char kStyle[] = R"css(
.velquist-tight button, .velquist-tight combobox button, .velquist-tight button.combo {
  padding: 0 0.15em; min-width: 0; min-height: 0; margin: 0; border-radius: 3px;
}
.velquist-tight button label { padding: 0; margin: 0; }
.velquist-tight combobox, .velquist-tight combobox box, .velquist-tight combobox cellview {
  padding: 0; margin: 0; min-width: 0; min-height: 0;
}
.velquist-tight combobox button.combo { padding: 0 0.25em 0 0.35em; }
.velquist-tight combobox arrow { min-width: 0.9em; min-height: 0.9em; }
.velquist-tight checkbutton, .velquist-tight radiobutton {
  padding: 0; margin: 0; min-width: 0; min-height: 0;
}
.velquist-tight check, .velquist-tight radio {
  min-width: 0.95em; min-height: 0.95em; margin: 0 0.35em 0 0; padding: 0;
}
.velquist-tight frame, .velquist-tight frame > border, .velquist-tight frame > label {
  padding: 0; margin: 0; min-width: 0; min-height: 0;
}
.velquist-tight frame > label { padding: 0 3px; }
.velquist-tight entry { padding: 0 0.3em; min-width: 0; min-height: 0; }
.velquist-tight label { padding: 0; min-width: 0; min-height: 0; }
.velquist-at-once * { transition: none; }
)css";

constexpr double kUsualResolution = 96;  // also where the desktop sets none

/// Dots of the screen per inch of text, which the desktop makes more where text shall be larger.
double Resolution()
{
  const double set = gdk_screen_get_resolution(gdk_screen_get_default());
  return set > 0 ? set : kUsualResolution;
}

/// The points that are as large as a usual one.
double UsualPoint()
{
  return kUsualResolution / Resolution();
}

bool AreWholePointsUsual()
{
  return Resolution() == kUsualResolution;
}

/// For all windows of the screen. The style sheet names classes that our own widgets alone have.
void LoadStyle(const char* style, guint priority)
{
  GtkCssProvider* provider = gtk_css_provider_new();
  gtk_css_provider_load_from_data(provider, style, -1, nullptr);
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(provider),
                                            priority);
  g_object_unref(provider);
}

/// Gives a window one of the classes of the style sheet.
void AddClass(wxWindow& window, const char* name)
{
  static std::once_flag loaded;
  std::call_once(loaded, LoadStyle, kStyle, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  gtk_style_context_add_class(gtk_widget_get_style_context(window.GetHandle()), name);
}

/// What the toolkit would put into a style sheet of a control's own, which has whole points.
std::string LettersStyle(const wxFont& font, double points)
{
  std::array<char, G_ASCII_DTOSTR_BUF_SIZE> number{};  // with a point in every language
  g_ascii_dtostr(number.data(), static_cast<int>(number.size()), points);
  return "{font:" + std::to_string(font.GetNumericWeight()) + " " + number.data() + "pt \"" +
         std::string(font.GetFaceName().utf8_str()) + "\"}";
}

/// The class of all controls with such letters. A style sheet for each control would make the
/// system work out each one's look by itself.
const std::string& LettersClass(const wxFont& font)
{
  constexpr int kInSheet = 16;    // the sizes of one design and screen are near each other
  constexpr double kLost = 0.01;  // by the toolkit, of points that are not whole
  static std::map<std::string, std::string> classes;  // by style
  const double point = UsualPoint();
  const int points = static_cast<int>(font.GetFractionalPointSize() / point + kLost);
  const auto style = LettersStyle(font, points * point);
  // Behind own letters; before them where the toolkit's own sheets cannot say the size.
  constexpr guint kOwn = GTK_STYLE_PROVIDER_PRIORITY_APPLICATION;
  const guint priority = AreWholePointsUsual() ? kOwn - 1 : kOwn + 1;
  if (const auto known = classes.find(style); known != classes.end()) return known->second;
  // Many sizes at once, since the system looks at every widget anew for each sheet.
  std::string sheet;
  const int first = (points - 1) / kInSheet * kInSheet + 1;
  for (int each = first; each < first + kInSheet; ++each) {
    const auto its = LettersStyle(font, each * point);
    auto& name = classes[its];
    if (!name.empty()) continue;
    name = "velquist-letters-" + std::to_string(classes.size());
    for (const auto* const inner : {"", " label", " cellview"})
      sheet.append(sheet.empty() || sheet.back() == '}' ? "." : ",.").append(name).append(inner);
    sheet.append(its);
  }
  LoadStyle(sheet.c_str(), priority);
  return classes.at(style);
}

constexpr char kOwnLetters[] = "velquist-own-letters";

/// Gives `control` the class of all controls with such letters. False when it has it already.
bool ShareLetters(const wxWindow& control, const wxFont& font)
{
  constexpr char kClass[] = "velquist-letters";
  auto* const widget = G_OBJECT(control.GetHandle());
  const auto& name = LettersClass(font);
  const auto* const before = static_cast<const char*>(g_object_get_data(widget, kClass));
  if (before == name.c_str()) return false;
  GtkStyleContext* const context = gtk_widget_get_style_context(control.GetHandle());
  if (before != nullptr) gtk_style_context_remove_class(context, before);
  gtk_style_context_add_class(context, name.c_str());
  g_object_set_data(widget, kClass, const_cast<char*>(name.c_str()));
  return true;
}

/// Where the toolkit's own sheet says their size.
void GiveOwnLetters(wxWindow& control, const wxFont& font)
{
  control.SetFont(font);
  if (!AreWholePointsUsual()) ShareLetters(control, font);
}

/// The text of a control that is little else.
GtkLabel* TextOf(const wxWindow& control)
{
  GtkWidget* const widget = control.GetHandle();
  if (GTK_IS_LABEL(widget)) return GTK_LABEL(widget);
  GtkWidget* const inside = GTK_IS_BUTTON(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : nullptr;
  return GTK_IS_LABEL(inside) ? GTK_LABEL(inside) : nullptr;
}

/// Beside the style sheets, which would have the system work out the control's look anew.
void SetOff(GtkLabel* text, const wxFont& font, const wxColour& colour)
{
  PangoAttrList* const attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes,
                         pango_attr_weight_new(static_cast<PangoWeight>(font.GetNumericWeight())));
  if (colour.IsOk()) {
    constexpr guint16 kOfEight = 0x101;  // a part of 8 bits as one of 16
    const auto part = [](unsigned char value) { return static_cast<guint16>(value * kOfEight); };
    pango_attr_list_insert(
        attributes,
        pango_attr_foreground_new(part(colour.Red()), part(colour.Green()), part(colour.Blue())));
  }
  gtk_label_set_attributes(text, attributes);
  pango_attr_list_unref(attributes);
}

double Points(double pixels)
{
  constexpr double kPointsPerInch = 72;
  return pixels * kPointsPerInch / Resolution();
}

}  // namespace

wxString LetterFace(const wxString& face)
{
  PangoFontMap* const fonts = pango_cairo_font_map_get_default();
  PangoContext* const context = pango_font_map_create_context(fonts);
  PangoFontDescription* const wanted = pango_font_description_from_string(face.utf8_str());
  PangoFont* const found = pango_font_map_load_font(fonts, context, wanted);
  wxString name = face;
  if (found != nullptr) {
    PangoFontDescription* const described = pango_font_describe(found);
    name = wxString::FromUTF8(pango_font_description_get_family(described));
    pango_font_description_free(described);
    g_object_unref(found);
  }
  pango_font_description_free(wanted);
  g_object_unref(context);
  return name;
}

wxFont LetterFont(const wxDC&, const wxString& face, double pixels)
{
  // The toolkit's own sizes in pixels are those of a line.
  return wxFont(wxFontInfo(Points(pixels)).FaceName(face));
}

wxFont ControlFont(const wxString& face, int pixels)
{
  constexpr double kUsualPointsPerPixel = 0.75;
  // Style sheets take whole points. Letters of other sizes would be measured as they are not shown,
  // and be one more font to look for. They are of the same height where text is larger.
  const int points = std::max(static_cast<int>(pixels * kUsualPointsPerPixel), 1);
  return wxFont(wxFontInfo(points * UsualPoint()).FaceName(face));
}

double TextScale(const wxWindow&)
{
  constexpr double kUsualPoints = 11;  // the most of the usual desktops
  gchar* name = nullptr;
  g_object_get(gtk_settings_get_default(), "gtk-font-name", &name, nullptr);
  PangoFontDescription* const font = pango_font_description_from_string(name);
  const double points = static_cast<double>(pango_font_description_get_size(font)) / PANGO_SCALE;
  pango_font_description_free(font);
  g_free(name);
  return std::max(Resolution() / kUsualResolution * std::max(points / kUsualPoints, 1.0), 1.0);
}

void ExpectLetters(wxWindow&, const wxFont&)
{
  // Letters are shared by style sheets.
}

void SetLetters(wxWindow& control, const wxFont& font)
{
  if (g_object_get_data(G_OBJECT(control.GetHandle()), kOwnLetters) != nullptr) {
    GiveOwnLetters(control, font);
    return;
  }
  // A control without a font of its own works out the theme's when it is asked for it.
  if (ShareLetters(control, font)) control.wxWindowBase::SetFont(font);
}

int TenthsOfMillimeter(const wxWindow&, int pixels)
{
  constexpr int kTenths = 10;
  GdkScreen* const screen = gdk_screen_get_default();
  // As the toolkit does the other way round.
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS
  return pixels * kTenths * gdk_screen_get_width_mm(screen) / gdk_screen_get_width(screen);
  G_GNUC_END_IGNORE_DEPRECATIONS
}

void SetOwnLetters(wxWindow& control, const wxFont& font, const wxColour& colour)
{
  if (GtkLabel* const text = TextOf(control)) {
    SetOff(text, font, colour);
    control.wxWindowBase::SetFont(font);
    control.wxWindowBase::SetForegroundColour(colour);
    return;
  }
  // A class that a control loses has the system look at all that stand beside it.
  g_object_set_data(G_OBJECT(control.GetHandle()), kOwnLetters, &control);
  GiveOwnLetters(control, font);
  control.SetForegroundColour(colour);
}

void AllowSmallControls(wxWindow& panel)
{
  AddClass(panel, kTight);
}

void ChangeButtonsAtOnce(wxTopLevelWindow& window)
{
  AddClass(window, kAtOnce);
}

void SetFirstClientSize(wxTopLevelWindow& window, wxSize size)
{
  window.SetClientSize(size);
  // The toolkit asks for room of that size until it has nothing else to do. When it lets go of that
  // all is laid out anew; before the first frame nothing is painted for it.
  window.Bind(wxEVT_SHOW, [&window](wxShowEvent& event) {
    event.Skip();
    if (event.IsShown()) gtk_widget_set_size_request(window.m_wxwindow, -1, -1);
  });
}

bool HasLostFocus(const wxWindow& window)
{
  // The toolkit does not hear of every way to a list.
  auto* const top = GTK_WINDOW(gtk_widget_get_toplevel(window.GetHandle()));
  return gtk_window_get_focus(top) == nullptr;
}

void AllowCutLabel(wxWindow& control)
{
  GtkWidget* const label = gtk_bin_get_child(GTK_BIN(control.GetHandle()));
  if (GTK_IS_LABEL(label)) gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
}

void PutBehindSiblings(wxWindow& frame)
{
  // Where the pointer is, the system takes the first in the order of their making.
  GtkWidget* const widget = frame.GetHandle();
  auto* const around = GTK_CONTAINER(gtk_widget_get_parent(widget));
  g_object_ref(widget);
  gtk_container_remove(around, widget);
  gtk_container_add(around, widget);
  g_object_unref(widget);
}

void KeepSiblingsOff(const wxWindow&, const wxRect&)
{
  // What was made last is painted last.
}

void CentreVertically(wxStaticText& label)
{
  auto* const widget = GTK_LABEL(label.GetHandle());
  gtk_label_set_line_wrap(widget, FALSE);
  gtk_label_set_yalign(widget, 0.5F);
}

void SetMnemonicTarget(wxStaticText& label, wxWindow& target)
{
  gtk_label_set_mnemonic_widget(GTK_LABEL(label.GetHandle()), target.GetHandle());
}

void SetItems(wxChoice& list, const wxArrayString& items)
{
  // The toolkit adds one item after the other to a list in use, and each costs more than the last.
  auto* const combo = GTK_COMBO_BOX(list.GetHandle());
  list.SetSelection(wxNOT_FOUND);
  GtkListStore* const rows = gtk_list_store_new(2, G_TYPE_STRING, G_TYPE_STRING);  // text, id
  for (const auto& item : items)
    gtk_list_store_insert_with_values(rows, nullptr, -1, 0, item.utf8_str().data(), -1);
  gtk_combo_box_set_model(combo, GTK_TREE_MODEL(rows));
  g_object_unref(rows);
  list.InvalidateBestSize();
}

}  // namespace velquist::platform
