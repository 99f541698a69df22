#include "KRGPXImageMemory.h"

#include <QtGlobal>

#include <cstdlib>
#include <limits>
#include <memory>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t bytesPerPixel = 4;

// Transparent images beyond this keep small pages, since in large ones a few lines touch all of the memory.
constexpr std::size_t largestInLargePages = 256U << 20U;

// QImage counts the bits of a line in an int.
bool isPossible(const QSize &size)
{
    return !size.isEmpty() && size.width() <= std::numeric_limits<int>::max() / 32;
}

std::size_t bytesOf(const QSize &size)
{
    return std::size_t(size.height()) * std::size_t(size.width()) * bytesPerPixel;
}

// Only a hint: whatever the system makes of it, the memory is the same.
void askForLargePages(void *memory, std::size_t bytes)
{
    if (!memory)
        return;
#if defined(Q_OS_LINUX) && defined(MADV_HUGEPAGE)
    constexpr std::size_t largePage = 2U << 20U;
    std::size_t room = bytes;
    if (std::align(largePage, largePage, memory, room))
        madvise(memory, room / largePage * largePage, MADV_HUGEPAGE);
#else
    Q_UNUSED(bytes)
#endif
}

/// Takes the memory over.
QImage imageIn(void *memory, const QSize &size, QImage::Format format)
{
    if (!memory)
        return QImage();
    const QImage image(static_cast<uchar *>(memory), size.width(), size.height(), format, std::free, memory);
    if (image.isNull())
        std::free(memory);
    return image;
}

} // namespace

QImage KRGPXImageMemory::rawImage(const QSize &size, QImage::Format format)
{
    if (!isPossible(size))
        return QImage();
    void *const memory = std::malloc(bytesOf(size));
    askForLargePages(memory, bytesOf(size));
    return imageIn(memory, size, format);
}

QImage KRGPXImageMemory::transparentImage(const QSize &size)
{
    if (!isPossible(size))
        return QImage();
    void *const memory = std::calloc(bytesOf(size), 1);
    if (bytesOf(size) <= largestInLargePages)
        askForLargePages(memory, bytesOf(size));
    return imageIn(memory, size, QImage::Format_ARGB32_Premultiplied);
}
