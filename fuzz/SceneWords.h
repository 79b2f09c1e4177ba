#pragma once

namespace kt::fuzz
{

// What scenes are made of; see SceneWriter.

struct Kind
{
    const char* name;
    const char* fields; ///< Each a letter for its type, see value(), and its name.
};

inline constexpr Kind kinds[] = {
    {"Group", "Mchildren vbboxSize"},
    {"Transform", "vtranslation rrotation vscale rscaleOrientation vcenter Mchildren"},
    {"TimeSensor", "tcycleInterval bloop benabled tstartTime tstopTime"},
    {"Shape", "nappearance ngeometry"},
    {"Appearance", "nmaterial ntexture ntextureTransform"},
    {"Material", "cdiffuseColor ftransparency fshininess"},
    {"PositionInterpolator", "Fkey VkeyValue"},
    {"OrientationInterpolator", "Fkey RkeyValue"},
    {"ScalarInterpolator", "Fkey FkeyValue"},
    {"ColorInterpolator", "Fkey CkeyValue"},
    {"CoordinateInterpolator", "Fkey VkeyValue"},
    {"NormalInterpolator", "Fkey VkeyValue"},
    {"IndexedFaceSet", "ncoord IcoordIndex ncolor IcolorIndex bcolorPerVertex nnormal InormalIndex ntexCoord "
                       "ItexCoordIndex bsolid bconvex fcreaseAngle"},
    {"IndexedLineSet", "ncoord IcoordIndex ncolor IcolorIndex bcolorPerVertex"},
    {"PointSet", "ncoord ncolor"},
    {"Coordinate", "Vpoint"},
    {"Color", "Ccolor"},
    {"Normal", "Vvector"},
    {"TextureCoordinate", "Wpoint"},
    {"ElevationGrid", "ixDimension izDimension Fheight fxSpacing ncolor nnormal bcolorPerVertex"},
    {"Extrusion", "WcrossSection Vspine Rorientation Wscale bbeginCap bendCap"},
    {"Text", "Sstring Flength fmaxExtent nfontStyle"},
    {"FontStyle", "Sfamily Sjustify fsize fspacing"},
    {"Box", "vsize"},
    {"Sphere", "fradius"},
    {"Cone", "fbottomRadius fheight bside"},
    {"Cylinder", "fradius fheight btop"},
    {"PixelTexture", "mimage brepeatS"},
    {"ImageTexture", "Surl brepeatT"},
    {"TextureTransform", "wcenter frotation wscale"},
    {"Switch", "iwhichChoice Mchoice"},
    {"LOD", "Mlevel Frange vcenter"},
    {"Billboard", "vaxisOfRotation Mchildren"},
    {"Collision", "bcollide Mchildren nproxy"},
    {"Anchor", "Surl Mchildren"},
    {"Inline", "Surl vbboxSize"},
    {"TouchSensor", "benabled"},
    {"PlaneSensor", "wmaxPosition wminPosition voffset"},
    {"SphereSensor", "roffset bautoOffset"},
    {"CylinderSensor", "fdiskAngle fmaxAngle"},
    {"ProximitySensor", "vsize vcenter"},
    {"VisibilitySensor", "vsize"},
    {"Viewpoint", "vposition rorientation ffieldOfView sdescription bjump"},
    {"NavigationInfo", "Stype FavatarSize bheadlight"},
    {"Background", "FskyAngle CskyColor FgroundAngle CgroundColor SfrontUrl"},
    {"Fog", "ccolor sfogType fvisibilityRange"},
    {"DirectionalLight", "vdirection fintensity"},
    {"SpotLight", "vlocation fbeamWidth fcutOffAngle"},
    {"Script", "Surl bdirectOutput"},
    {"WorldInfo", "stitle Sinfo"},
    {"Sound", "nsource vlocation"},
    {"AudioClip", "Surl bloop tstartTime fpitch"},
};

struct Types
{
    char letter;
    const char* name;
    int numbers; ///< Of one value; 0 for what is none.
};

inline constexpr Types types[] = {
    {'f', "SFFloat", 1},    {'i', "SFInt32", 1},  {'t', "SFTime", 1},     {'w', "SFVec2f", 2},
    {'v', "SFVec3f", 3},    {'c', "SFColor", 3},  {'r', "SFRotation", 4}, {'b', "SFBool", 0},
    {'s', "SFString", 0},   {'n', "SFNode", 0},   {'m', "SFImage", 0},    {'F', "MFFloat", 1},
    {'I', "MFInt32", 1},    {'W', "MFVec2f", 2},  {'V', "MFVec3f", 3},    {'C', "MFColor", 3},
    {'R', "MFRotation", 4}, {'S', "MFString", 0}, {'M', "MFNode", 0}};

/// Events of one type: what sends them, what takes them.
struct Events
{
    const char* out;
    const char* in;
};

inline constexpr Events events[] = {
    {"fraction_changed", "set_fraction"},
    {"time", "startTime"},
    {"cycleTime", "set_stopTime"},
    {"isActive", "enabled"},
    {"isActive", "set_loop"},
    {"touchTime", "startTime"},
    {"value_changed", "set_translation"},
    {"value_changed", "rotation"},
    {"value_changed", "set_diffuseColor"},
    {"value_changed", "transparency"},
    {"value_changed", "point"},
    {"value_changed", "set_vector"},
    {"children", "addChildren"},
    {"children_changed", "set_children"},
    {"time", "cycleInterval"},
    {"fraction_changed", "whichChoice"},
    {"translation", "set_translation"},
    {"p0", "p1"},
    {"touchTime", "p0"},
};

inline const char* const words[] = {"b.wrl",       "a.wrl", "b.wrl#P1", "none.png", "",
                                    "javascript:", "SERIF", "MIDDLE",   "EXAMINE",  "a # { [ \\\" ] }",
                                    "T\xC3\xBCr",  "\xFF"};

inline const char* const oddWholes[] = {"0", "-1", "0xFF", "2147483647", "-2147483648", "100000", "1"};

inline const char* const oddNumbers[] = {"0", "-1", "1e38", "-1e38", "1e-45", "1e300", "-0.0", "0.5", "1e9"};

} // namespace kt::fuzz
