#include "model/LayerManager.h"

#include "model/DrawingViews.h"
#include "model/LayerListView.h"
#include "model/LayerName.h"
#include "settings/Messages.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"

#include <maya/MAnimControl.h>

#include <algorithm>

LayerListView* LayerManager::s_listView = nullptr;
DrawingViews* LayerManager::s_views = nullptr;

namespace {

void reportInvalidLayer(const QString& camera, int index)
{
    messages::error(QString("Invalid layer: %1 (%2)").arg(camera, QString::number(index)));
}

}  // namespace

LayerManager::LayerManager()
{
    PixelBudget::instance().addUser(this);
}

LayerManager::~LayerManager()
{
    PixelBudget::instance().removeUser(this);
}

void LayerManager::setLayerListView(LayerListView* view)
{
    s_listView = view;
}

void LayerManager::setDrawingViews(DrawingViews* views)
{
    s_views = views;
}

void LayerManager::publish()
{
    m_isToPublish = m_publishingLater > 0;
    if (m_isToPublish || !m_master || !s_listView || (s_views && s_views->isAnotherEdited(*this))) {
        return;
    }
    s_listView->clear();
    for (const auto& entry : m_cameras) {
        for (int i = 0; i < entry.second.layerCount(); ++i) {
            const Layer& layer = *entry.second.layer(i);
            s_listView->addRow(entry.first, i, layer.name(), layer.state(), layer.isVisible());
        }
    }
    s_listView->select(m_current.current, activeLayerIndex(m_current.current));
    s_listView->refresh();
}

PublishOnce::PublishOnce(LayerManager& manager) : m_manager(manager)
{
    ++m_manager.m_publishingLater;
}

PublishOnce::~PublishOnce()
{
    --m_manager.m_publishingLater;
    if (m_manager.m_isToPublish) {
        m_manager.publish();
    }
}

// Cameras ------------------------------------------------------------------------------------------------------------

CameraDrawing* LayerManager::drawing(const QString& camera)
{
    const auto found = m_cameras.find(camera);
    return found == m_cameras.end() ? nullptr : &found->second;
}

const CameraDrawing* LayerManager::drawing(const QString& camera) const
{
    const auto found = m_cameras.find(camera);
    return found == m_cameras.end() ? nullptr : &found->second;
}

QStringList LayerManager::cameras() const
{
    QStringList names;
    for (const auto& entry : m_cameras) {
        names.append(entry.first);
    }
    return names;
}

void LayerManager::setCurrentCamera(const QString& camera)
{
    if (camera != m_current.current) {
        m_current.previous = m_current.current;
        m_current.current = camera;
        publish();
    }
}

void LayerManager::restoreCurrentCameras(const CurrentCameras& cameras)
{
    m_current = cameras;
    publish();
}

void LayerManager::syncCurrentCamera()
{
    const QString camera = s_views ? s_views->activeCamera() : QString();
    if (!camera.isEmpty()) {
        setCurrentCamera(camera);
    }
}

// Its first layer is in place.
void LayerManager::prepareCamera(const QString& camera, CameraDrawing& drawing)
{
    if (totalLayerCount() == 1) {
        setActiveLayer(camera, 0, true);
    } else {
        drawing.layer(0)->setActive(true);
    }
}

void LayerManager::dropCamera(const QString& camera)
{
    m_cameras.erase(camera);
    if (camera == m_current.current) {
        setActiveLayer(camera, -1, false);
    }
}

// Layers -------------------------------------------------------------------------------------------------------------

int LayerManager::layerCount(const QString& camera) const
{
    const CameraDrawing* found = drawing(camera);
    return found ? found->layerCount() : 0;
}

int LayerManager::totalLayerCount() const
{
    int count = 0;
    for (const auto& entry : m_cameras) {
        count += entry.second.layerCount();
    }
    return count;
}

bool LayerManager::isValidLayer(const QString& camera, int index) const
{
    return layer(camera, index) != nullptr;
}

Layer* LayerManager::layer(const QString& camera, int index) const
{
    const CameraDrawing* found = drawing(camera);
    return found ? found->layer(index) : nullptr;
}

quint64 LayerManager::layerId(const QString& camera, int index) const
{
    const Layer* found = layer(camera, index);
    return found ? found->id() : 0;
}

int LayerManager::layerIndex(const QString& camera, quint64 layerId) const
{
    const CameraDrawing* found = drawing(camera);
    return found ? found->indexOf(layerId) : -1;
}

int LayerManager::activeLayerIndex(const QString& camera) const
{
    const CameraDrawing* found = drawing(camera);
    return found ? found->activeIndex() : -1;
}

Layer* LayerManager::activeLayer(const QString& camera) const
{
    return layer(camera, activeLayerIndex(camera));
}

QString LayerManager::layerName(const QString& camera, int index) const
{
    const Layer* found = layer(camera, index);
    return found ? found->name() : QString();
}

float LayerManager::layerOpacity(const QString& camera, int index) const
{
    const Layer* found = layer(camera, index);
    return found ? found->opacity() : 0.0f;
}

int LayerManager::layerState(const QString& camera, int index) const
{
    const Layer* found = layer(camera, index);
    return found ? found->state() : 0;
}

bool LayerManager::layerVisible(const QString& camera, int index) const
{
    const Layer* found = layer(camera, index);
    return found && found->isVisible();
}

bool LayerManager::layerNameExists(const QString& name) const
{
    return std::any_of(m_cameras.begin(), m_cameras.end(), [&name](const std::pair<const QString, CameraDrawing>& c) {
        return std::any_of(c.second.layers.begin(), c.second.layers.end(),
                           [&name](const std::unique_ptr<Layer>& layer) { return layer->name() == name; });
    });
}

// Numbered names are always built on "Layer", never on the name that was asked for: it is meant.
QString LayerManager::uniqueLayerName(const QString& name) const
{
    QString candidate = recordableName(name);
    if (candidate.isEmpty()) {
        candidate = QString("Layer");
    }
    for (int number = 1; layerNameExists(candidate); ++number) {
        candidate = QString("Layer %1").arg(number);
    }
    return candidate;
}

int LayerManager::insertLayer(const QString& camera, int index, const QString& name)
{
    std::unique_ptr<Layer> layer(new Layer);
    layer->setName(uniqueLayerName(name));
    layer->setState(Preferences::instance().defaultLayerState());
    return insertLayer(camera, index, std::move(layer));
}

int LayerManager::insertLayer(const QString& camera, int index, std::unique_ptr<Layer> layer)
{
    if (!layer) {
        return -1;
    }
    CameraDrawing& target = m_cameras[camera];
    const int used = target.insert(index, std::move(layer));
    if (target.layerCount() == 1) {
        prepareCamera(camera, target);
    }
    markForRedraw(camera);
    publish();
    return used;
}

std::unique_ptr<Layer> LayerManager::takeLayer(const QString& camera, int index)
{
    if (!isValidLayer(camera, index)) {
        return nullptr;
    }
    CameraDrawing& source = *drawing(camera);
    const int active = source.activeIndex();
    std::unique_ptr<Layer> taken = source.take(index);
    if (source.layerCount() == 0) {
        dropCamera(camera);
    } else if (index == active) {
        setActiveLayer(camera, std::max(active - 1, 0), false);
    }
    markForRedraw(camera);
    publish();
    return taken;
}

std::vector<std::unique_ptr<Layer>> LayerManager::takeAllLayers(const QString& camera)
{
    std::vector<std::unique_ptr<Layer>> taken;
    if (CameraDrawing* source = drawing(camera)) {
        taken = std::move(source->layers);
        dropCamera(camera);
        publish();
    }
    return taken;
}

int LayerManager::moveLayer(const QString& camera, int from, int to)
{
    if (!isValidLayer(camera, from)) {
        reportInvalidLayer(camera, from);
        return -1;
    }
    CameraDrawing& stack = *drawing(camera);
    const int landing = std::min(std::max(to, 0), stack.layerCount() - 1);
    stack.move(from, landing);
    markForRedraw(camera);
    publish();
    return landing;
}

int LayerManager::moveLayerToCamera(const QString& camera, int index, const QString& toCamera, int toIndex)
{
    if (!script::cameraExists(toCamera)) {
        messages::error(QString("Camera does not exist: %1").arg(toCamera));
        return -1;
    }
    if (!isValidLayer(camera, index)) {
        reportInvalidLayer(camera, index);
        return -1;
    }
    std::unique_ptr<Layer> moving = takeLayer(camera, index);
    moving->setActive(false);
    return insertLayer(toCamera, toIndex, std::move(moving));
}

bool LayerManager::setActiveLayer(const QString& camera, int index, bool makeCurrentCamera)
{
    const int count = layerCount(camera);
    if ((index < 0 && count > 0) || index >= count) {
        messages::error(QString("Invalid layer index: %1").arg(index));
        return false;
    }
    if (CameraDrawing* stack = drawing(camera)) {
        stack->redraw = stack->redraw || stack->activeIndex() != index;  // the ghosts are the active layer's
        stack->setActive(index);
    }
    if (makeCurrentCamera && camera != m_current.current) {
        m_current.previous = m_current.current;
        m_current.current = camera;
    }
    publish();
    return true;
}

void LayerManager::renameLayer(const QString& camera, int index, const QString& name)
{
    Layer* found = layer(camera, index);
    if (found && found->name() != recordableName(name)) {
        found->setName(uniqueLayerName(name));
    }
    publish();
}

void LayerManager::restoreLayerName(const QString& camera, int index, const QString& name)
{
    if (Layer* found = layer(camera, index)) {
        found->setName(name);
    }
    publish();
}

void LayerManager::setLayerOpacity(const QString& camera, int index, float opacity)
{
    Layer* found = layer(camera, index);
    if (!found) {
        return;
    }
    found->setOpacity(opacity);
    if (s_views && camera == m_current.current && found->isActive()) {
        s_views->activeOpacityChanged();
    }
}

void LayerManager::setLayerState(const QString& camera, int index, int state)
{
    if (Layer* found = layer(camera, index)) {
        found->setState(state);
    }
    publish();
}

void LayerManager::setLayerVisible(const QString& camera, int index, bool visible)
{
    if (Layer* found = layer(camera, index)) {
        found->setVisible(visible);
    }
    publish();
}

void LayerManager::clear(bool publishing)
{
    dropStroke();
    m_cameras.clear();
    if (publishing) {
        publish();
    }
}

// Frames of the active layer -----------------------------------------------------------------------------------------

// The ghosts may become other ones although the frame shown stays the same.
Layer* LayerManager::editedLayer(const QString& camera)
{
    markForRedraw(camera);
    return activeLayer(camera);
}

int LayerManager::addFrame(const QString& camera, const MTime& time)
{
    Layer* active = editedLayer(camera);
    return active ? active->addFrame(time) : -1;
}

int LayerManager::addFrameAtCurrentTime(const QString& camera)
{
    Layer* active = editedLayer(camera);
    return active ? active->addFrameAtCurrentTime() : -1;
}

int LayerManager::insertFrame(const QString& camera, std::unique_ptr<Frame> frame)
{
    Layer* active = editedLayer(camera);
    return active ? active->insertFrame(std::move(frame)) : -1;
}

std::unique_ptr<Frame> LayerManager::copyFrame(const QString& camera, const MTime& time) const
{
    const Layer* active = activeLayer(camera);
    return active ? active->copyFrame(time) : nullptr;
}

std::unique_ptr<Frame> LayerManager::takeFrame(const QString& camera, const MTime& time)
{
    Layer* active = editedLayer(camera);
    return active ? active->takeFrame(time) : nullptr;
}

std::unique_ptr<Frame> LayerManager::takeFrameAtCurrentTime(const QString& camera)
{
    Layer* active = editedLayer(camera);
    return active ? active->takeFrameAtCurrentTime() : nullptr;
}

Frame* LayerManager::nextFrame(const QString& camera, bool wrap) const
{
    const Layer* active = activeLayer(camera);
    return active ? active->nextFrame(wrap) : nullptr;
}

Frame* LayerManager::previousFrame(const QString& camera, bool wrap) const
{
    const Layer* active = activeLayer(camera);
    return active ? active->previousFrame(wrap) : nullptr;
}

QList<int> LayerManager::frameNumbers(const QString& camera) const
{
    const Layer* active = activeLayer(camera);
    return active ? active->frameNumbers() : QList<int>();
}

void LayerManager::retime(const QString& camera, const QList<int>& numbers)
{
    if (Layer* active = editedLayer(camera)) {
        active->retime(numbers);
    }
}

bool LayerManager::hasFrameAtCurrentTime(const QString& camera) const
{
    const Layer* active = activeLayer(camera);
    return active && active->hasFrameAtCurrentTime();
}

void LayerManager::updateCurrentFrames(int frameNumber, bool skipActive)
{
    const Layer* drawnOn = strokeLayer();
    const Layer* kept = skipActive ? activeLayer(m_current.current) : nullptr;
    for (const auto& entry : m_cameras) {
        for (const auto& layer : entry.second.layers) {
            if (layer.get() != drawnOn && layer.get() != kept) {
                layer->updateCurrentFrame(frameNumber);
            }
        }
    }
    const bool playing = MAnimControl::isPlaying();
    if (playing && !m_wasPlaying) {
        markForRedraw(m_current.current);  // its ghosts may have to go
    }
    m_wasPlaying = playing;
    PixelBudget::instance().trim();
}

void LayerManager::collectPicturesInUse(QSet<quint64>& ids) const
{
    const GhostOptions options = ghostOptions();
    for (const auto& entry : m_cameras) {
        for (const auto& layer : entry.second.layers) {
            const int earlier = layer->isActive() && options.previous ? options.previousCount : 0;
            const int later = layer->isActive() && options.next ? options.nextCount : 0;
            for (int offset = -earlier; offset <= later; ++offset) {
                ids.insert(layer->pictureIdAtOffset(offset));
            }
        }
    }
    if (const Frame* frame = strokeTargetFrame()) {
        ids.insert(frame->picture().id());
    }
}
