#include "view/ImagePlanes.h"

#include "kernel/ImageSequence.h"
#include "kernel/Session.h"
#include "view/GlState.h"

#include <QOpenGLFunctions>

#include <algorithm>

namespace view {

namespace {

using kernel::Node;
using kernel::NodePtr;

enum DisplayMode { kNone, kOutline, kRgb, kRgba };
enum Fit { kFill, kBest, kHorizontal, kVertical, kToSize };

const QColor kOutlineColour(0x9a, 0x9a, 0x9a);
constexpr int kMostAhead = 12;  // pictures decoded before they are wanted
constexpr int kMostLate = 24;   // steps that a picture shown may lie behind the time

bool hasCamera(const Node& transform)
{
    return std::any_of(transform.children().begin(), transform.children().end(),
                       [](const NodePtr& child) { return child->type().isA("camera"); });
}

/// Those that are hidden, themselves or with something below the camera's transform, are left out. The camera itself
/// may well be hidden.
void collect(const Node& transform, std::vector<NodePtr>& planes)
{
    for (const NodePtr& child : transform.children()) {
        if (child->number("visibility") == 0) {
            continue;
        }
        if (child->type().isA("imagePlane")) {
            planes.push_back(child);
        } else if (!hasCamera(*child)) {
            collect(*child, planes);
        }
    }
}

/// The near plane of a window onto the scene, in its own units.
kernel::Matrix4 nearPlaneProjection(const Frustum& frustum)
{
    kernel::Matrix4 p;
    p.m[0][0] = 2 / frustum.width();
    p.m[1][1] = 2 / frustum.height();
    p.m[3][0] = -(frustum.right + frustum.left) / frustum.width();
    p.m[3][1] = -(frustum.top + frustum.bottom) / frustum.height();
    return p;
}

/// The times the scene will come to next when it plays on, no more than it comes to before it turns or ends.
std::vector<double> timesAhead(const kernel::Scene& scene, const kernel::Playback& playback, int count)
{
    const kernel::Scene::Range range = scene.playbackRange();
    const double step = playback.isForward() ? playback.options.by : -playback.options.by;
    std::vector<double> times;
    for (double time = scene.currentTime().value + step; int(times.size()) < count; time += step) {
        if (time < range.first || time > range.last) {
            if (playback.options.loop != kernel::Playback::Loop::Continuous) {
                break;
            }
            time = playback.isForward() ? range.first : range.last;
        }
        times.push_back(time);
    }
    return times;
}

/// As many as half of the store has room for.
int countAhead(const QSize& picture)
{
    const std::size_t bytes =
        std::max<std::size_t>(1, std::size_t(picture.width()) * std::size_t(picture.height()) * 4);
    return int(std::clamp<std::size_t>(PictureStore::instance().budget() / 2 / bytes, 1, kMostAhead));
}

void prepareAhead(const Node& plane, const kernel::Scene& scene, const kernel::Playback& playback, int count)
{
    std::vector<std::string> paths{kernel::shownImage(plane, scene.currentTime().value)};
    for (const double time : timesAhead(scene, playback, count)) {
        paths.push_back(kernel::shownImage(plane, time));
    }
    PictureStore::instance().prepare(&plane, paths);
}

/// The true picture if it is there, otherwise the last one before it that is.
PictureStore::Picture nearestReady(const Node& plane, const kernel::Scene& scene, const kernel::Playback& playback)
{
    PictureStore& store = PictureStore::instance();
    double time = scene.currentTime().value;
    const PictureStore::Picture wanted = store.readyPicture(kernel::shownImage(plane, time));
    for (int i = 0; wanted.state == PictureStore::State::Pending && i < kMostLate; ++i) {
        time -= playback.isForward() ? playback.options.by : -playback.options.by;
        const PictureStore::Picture earlier = store.readyPicture(kernel::shownImage(plane, time));
        if (earlier.state == PictureStore::State::Ready) {
            return earlier;
        }
    }
    return wanted;
}

void complain(const Node& plane, const std::string& path, PictureStore::State state)
{
    // A sequence may lack many of its numbers: one word about it is enough.
    const bool isUnreadable = state == PictureStore::State::Unreadable;
    if (!PictureStore::instance().takeComplaint(isUnreadable ? path : plane.text("imageName"))) {
        return;
    }
    const char* const what = isUnreadable ? " could not be read as a picture." : " was not found.";
    kernel::Session::current().output.warning(plane.name() + ": The image \"" + path + '"' + what);
}

void upload(const QImage& image, bool hasAlpha, bool hasMipmaps)
{
    int largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    const bool fits = std::max(image.width(), image.height()) <= largest;
    const QImage held = fits ? image : image.scaled(largest, largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    glTexParameteri(GL_TEXTURE_2D, GL_GENERATE_MIPMAP, hasMipmaps);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, hasMipmaps ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, hasAlpha ? GL_RGBA8 : GL_RGB8, held.width(), held.height(), 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, held.constBits());
}

void drawOutline(const QRectF& rect)
{
    glLineWidth(1);
    setGlColour(kOutlineColour);
    glBegin(GL_LINE_LOOP);
    for (const QPointF& corner : {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()}) {
        glVertex2d(corner.x(), corner.y());
    }
    glEnd();
}

void drawPicture(const QRectF& rect, double alpha)
{
    const struct {
        double s, t;
        QPointF at;
    } corners[] = {
        {0, 1, rect.topLeft()}, {1, 1, rect.topRight()}, {1, 0, rect.bottomRight()}, {0, 0, rect.bottomLeft()}};
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glColor4d(1, 1, 1, alpha);
    glBegin(GL_QUADS);
    for (const auto& corner : corners) {
        glTexCoord2d(corner.s, corner.t);
        glVertex2d(corner.at.x(), corner.at.y());
    }
    glEnd();
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
}

}  // namespace

QRectF pictureRect(const Node& imagePlane, const Lens& lens, const QSize& picture)
{
    const double across = lens.horizontalAperture / std::max(1, picture.width());
    const double up = lens.verticalAperture / std::max(1, picture.height());
    double inchesPerPixel = std::min(across, up);
    switch (int(imagePlane.number("fit"))) {
    case kFill: inchesPerPixel = std::max(across, up); break;
    case kHorizontal: inchesPerPixel = across; break;
    case kVertical: inchesPerPixel = up; break;
    default: break;
    }
    QSizeF size = QSizeF(picture) * inchesPerPixel;
    if (int(imagePlane.number("fit")) == kToSize) {
        size = QSizeF(imagePlane.number("sizeX"), imagePlane.number("sizeY"));
    }
    QRectF rect(QPointF(), size);
    rect.moveCenter(QPointF(imagePlane.number("offsetX"), imagePlane.number("offsetY")));
    return rect;
}

std::vector<NodePtr> imagePlanesOf(const Node& cameraShape)
{
    std::vector<NodePtr> planes;
    if (cameraShape.parent()) {
        collect(*cameraShape.parent(), planes);
    }
    return planes;
}

void ImagePlanes::draw(const kernel::Scene& scene, const api::FrameState& frame)
{
    dropLostTextures();
    const std::vector<NodePtr> planes = imagePlanesOf(*frame.camera);
    if (planes.empty()) {
        return;
    }
    const Lens lens = lensOf(*frame.camera);
    const GlMatrices matrices({}, nearPlaneProjection(frustumOf(lens, frame.width, frame.height)));
    for (const NodePtr& plane : planes) {
        drawPlane(plane, lens, scene, frame.width);
    }
}

void ImagePlanes::drawPlane(const NodePtr& plane, const Lens& lens, const kernel::Scene& scene, int portWidth)
{
    const int mode = int(plane->number("displayMode"));
    if (mode == kNone) {
        return;
    }
    Texture& texture = textureOf(plane);
    if (texture.hasAlpha != (mode == kRgba)) {
        texture.hasAlpha = mode == kRgba;
        texture.picture = 0;
    }
    glBindTexture(GL_TEXTURE_2D, texture.name);
    if (update(texture, *plane, scene, portWidth)) {
        const QRectF inches = pictureRect(*plane, lens, texture.size);
        const double units = unitsPerInch(lens);
        const QRectF rect(inches.topLeft() * units, inches.size() * units);
        if (mode == kOutline) {
            drawOutline(rect);
        } else {
            drawPicture(rect, plane->number("alphaGain"));
        }
    }
    glBindTexture(GL_TEXTURE_2D, 0);
}

ImagePlanes::Texture& ImagePlanes::textureOf(const NodePtr& plane)
{
    Texture& texture = m_textures[plane.get()];
    if (texture.name == 0) {
        texture.plane = plane;
        glGenTextures(1, &texture.name);
    }
    return texture;
}

bool ImagePlanes::update(Texture& texture, const Node& plane, const kernel::Scene& scene, int portWidth) const
{
    const double time = scene.currentTime().value;
    const std::string path = kernel::shownImage(plane, time);
    if (path.empty()) {
        return false;
    }
    // Playing every frame, however long it takes, shows every picture, too.
    const kernel::Playback& playback = kernel::Session::current().playback;
    const bool mayLag = playback.isPlaying() && playback.options.speed > 0;
    if (mayLag) {
        prepareAhead(plane, scene, playback, countAhead(texture.size));
    }
    const PictureStore::Picture picture =
        mayLag ? nearestReady(plane, scene, playback) : PictureStore::instance().picture(path, time);
    if (picture.state == PictureStore::State::Pending) {
        return texture.picture != 0;  // what it showed last
    }
    if (picture.state != PictureStore::State::Ready) {
        complain(plane, path, picture.state);
        return false;
    }
    // Much larger than the view it would flicker without smaller versions of it.
    const bool isLarge = picture.image.width() > 2 * portWidth;
    if (texture.picture != picture.image.cacheKey() || texture.hasMipmaps != isLarge) {
        upload(picture.image, texture.hasAlpha, isLarge);
        texture.hasMipmaps = isLarge;
        texture.picture = picture.image.cacheKey();
        texture.size = picture.image.size();
    }
    return true;
}

void ImagePlanes::dropLostTextures()
{
    for (auto it = m_textures.begin(); it != m_textures.end();) {
        const NodePtr plane = it->second.plane.lock();
        if (plane && plane->isInScene()) {
            ++it;
        } else {
            glDeleteTextures(1, &it->second.name);
            it = m_textures.erase(it);
        }
    }
}

void ImagePlanes::clear()
{
    for (const auto& texture : m_textures) {
        glDeleteTextures(1, &texture.second.name);
    }
    m_textures.clear();
}

}  // namespace view
