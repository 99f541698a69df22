#include "KRGPXImageMemory.h"

#include <QtGlobal>

#include <cstdint>
#include <cstdlib>
#include <limits>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace {

constexpr std::size_t bytesPerPixel = 4;

// Transparent images beyond this keep small pages, since in large ones a few lines touch all of the memory.
constexpr std::size_t largestInLargePages = 256 * 1024 * 1024;

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
    constexpr std::uintptr_t largePage = 2 * 1024 * 1024;
    const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(memory) + largePage - 1) / largePage * largePage;
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) / largePage * largePage;
    if (begin < end)
        madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
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
