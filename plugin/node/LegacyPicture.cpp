#include "node/LegacyPicture.h"

#include "model/Canvas.h"

#include <maya/MGl.h>

#include <vector>

namespace {

const int kClampToEdge = 0x812F;  // GL_CLAMP_TO_EDGE, which not every system's GL header knows

/// Textures of pictures that went where no OpenGL was at hand; the next one to be drawn deletes them.
std::vector<GLuint>& abandonedTextures()
{
    static std::vector<GLuint> textures;
    return textures;
}

void deleteAbandonedTextures()
{
    std::vector<GLuint>& textures = abandonedTextures();
    if (!textures.empty()) {
        glDeleteTextures(GLsizei(textures.size()), textures.data());
        textures.clear();
    }
}

/// The view's pixels as coordinates, y up, and plain blending without depth; what was set before comes back at the end.
class PixelSpace {
public:
    PixelSpace(int width, int height)
    {
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
        glMatrixMode(GL_TEXTURE);
        glPushMatrix();
        glLoadIdentity();
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        glOrtho(0.0, width, 0.0, height, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        for (const GLenum unwanted : {GL_LIGHTING, GL_DEPTH_TEST, GL_CULL_FACE, GL_ALPHA_TEST, GL_FOG, GL_TEXTURE_GEN_S,
                                      GL_TEXTURE_GEN_T, GL_COLOR_LOGIC_OP}) {
            glDisable(unwanted);
        }
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_TEXTURE_2D);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    }
    ~PixelSpace()
    {
        glMatrixMode(GL_MODELVIEW);
        glPopMatrix();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_TEXTURE);
        glPopMatrix();
        glPopClientAttrib();
        glPopAttrib();
    }
    PixelSpace(const PixelSpace&) = delete;
    PixelSpace& operator=(const PixelSpace&) = delete;
};

void setPacking()
{
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    for (const GLenum offset :
         {GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS, GL_UNPACK_SWAP_BYTES}) {
        glPixelStorei(offset, 0);
    }
}

/// The square with its lower left corner at (left, bottom); the texture's first row is on top.
void drawSquare(double left, double bottom, double side)
{
    const struct {
        int u, v;
    } corners[] = {{0, 1}, {1, 1}, {1, 0}, {0, 0}};
    glBegin(GL_QUADS);
    for (const auto& corner : corners) {
        glTexCoord2i(corner.u, corner.v);
        glVertex3d(left + corner.u * side, bottom + (1 - corner.v) * side, 1.0);
    }
    glEnd();
}

}  // namespace

// Nodes also go where there is no view.
LegacyPicture::~LegacyPicture()
{
    if (m_texture) {
        abandonedTextures().push_back(m_texture);
    }
}

void LegacyPicture::draw(const QImage& image, quint64 generation, const ViewportMetrics& metrics, float opacity)
{
    deleteAbandonedTextures();
    const PixelSpace pixels(metrics.width, metrics.height);
    bind(image, generation);
    glColor4f(1.0f, 1.0f, 1.0f, opacity);
    const double side = double(metrics.drawnSize);
    drawSquare((metrics.width - side) * 0.5 - metrics.panOffset.x, (metrics.height - side) * 0.5 - metrics.panOffset.y,
               side);
}

void LegacyPicture::bind(const QImage& image, quint64 generation)
{
    setPacking();
    if (m_texture) {
        glBindTexture(GL_TEXTURE_2D, m_texture);
    } else {
        glGenTextures(1, &m_texture);
        glBindTexture(GL_TEXTURE_2D, m_texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, kClampToEdge);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, kClampToEdge);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kCanvasSize, kCanvasSize, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        m_shown = 0;
    }
    if (generation != m_shown) {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, kCanvasSize, kCanvasSize, GL_RGBA, GL_UNSIGNED_BYTE, image.constBits());
        m_shown = generation;
    }
}
