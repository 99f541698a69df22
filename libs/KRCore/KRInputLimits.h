#pragma once

#include <QtGlobal>

/**
 * How much of a file of unknown origin the libraries and the programs read; docs/limits.md tells users.
 *
 * Each limit lies far above what real files hold. It keeps a file that means harm from taking more than about two
 * seconds or half a gigabyte, or from overflowing the stack. Whatever exceeds a limit is refused with a reason.
 */
namespace KRInputLimits {

// --- Files

/// Bytes of a file that is read piece by piece: GPX and archives. What fills it is counted further below.
inline constexpr qint64 streamedFileBytes = qint64(4) << 30;
/// Bytes of a document that is in memory as a whole, whose decoded text and tree take ten times as much.
inline constexpr int documentBytes = 64 << 20;
/// Lines of a text, as each is a string of its own, of some 60 bytes at least.
inline constexpr int textLines = 4000000;

/// Bytes of the file of settings, which has some thousand.
inline constexpr int settingsBytes = 1 << 20;
/// Bytes that are read again as a route document names files more than once; fileOverhead is added for each time.
inline constexpr qint64 repeatedBytes = 64 << 20;
inline constexpr qint64 fileOverhead = 4096;
/// Points of the tracks that a route document names more than once, beyond the first time; 10 million are drawn in some
/// two seconds.
inline constexpr qint64 repeatedPoints = 10000000;

// --- XML

/// Nested elements, the root included: QDom recurses, and a thread may have no more than 256 kB of stack.
inline constexpr int depth = 256;
/// Elements, attributes, texts, comments and declarations that become a DOM, which takes some hundred bytes for each.
inline constexpr int nodes = 500000;
/// Declarations in a document type. The reader compares each with all others; the entities of HTML are some 250.
inline constexpr int declarations = 2000;
/// Bytes of an XML declaration: a reader compares the encoding that it names with all that there are.
inline constexpr int declarationBytes = 4096;
/// Words in the texts of a DOM, with blanks between them: each may be a position, which takes some 100 bytes for a
/// while.
inline constexpr int words = 2500000;
/// Characters of one of them, or of blanks in between: no position, name or description is as long.
inline constexpr int wordCharacters = 4 << 20;
/// References to characters and entities in a text that becomes a DOM, whose reader is slow with them, and in any one
/// tag or text.
inline constexpr int references = 2000000;
/// Tags, texts and comments of a document that is in memory as a whole and read one by one, about a second.
inline constexpr int documentTokens = 5000000;
/// Tags, texts and comments, and bytes, of a file that is read piece by piece; for every point in it there may be
/// tokensPerPoint and bytesPerPoint more. Plain points, which no XML reader sees, do not count.
inline constexpr int bulkTokens = 3500000;
inline constexpr int bulkBytes = 48 << 20;
inline constexpr int tokensPerPoint = 1;
inline constexpr int bytesPerPoint = 64;
/// A reference takes as long as so many tags or texts, and counts as them.
inline constexpr int tokensPerReference = 2;
/// The same for times that have to be read by QDateTime, each time that the system is asked for the zone, and what is
/// no time; nearly all are read by their digits and count as nothing.
inline constexpr int tokensPerLocalTime = 16;
inline constexpr int tokensPerOtherTime = 9;
inline constexpr int tokensPerUnreadableTime = 2;
/// Tags, texts and comments that one name, description or list of positions consists of.
inline constexpr int textPieces = 100000;
/// Characters of one name or description, and of all of a file that is read piece by piece, of two bytes each.
inline constexpr int keptCharacters = 4 << 20;
inline constexpr int allKeptCharacters = 64 << 20;
/// Characters of one name; QXmlStreamReader has the same limit.
inline constexpr int nameCharacters = 4096;
/// Characters of one attribute, comment or instruction that becomes part of a DOM.
inline constexpr int markupCharacters = 4 << 20;
/// Characters that entities may add to a text.
inline constexpr int entityCharacters = 8 << 20;
/// Bytes of one tag, text or comment, which an XML reader keeps in memory until it is complete.
inline constexpr qint64 tokenBytes = 48 << 20;
/// Quotation marks in one token, twice the number of its attributes if it is a tag.
inline constexpr qint64 tokenQuotes = 10000;
/// Attributes of a tag that count for attributePairs; real tags have fewer.
inline constexpr int manyAttributes = 50;
/// Comparisons of the attributes of a tag with each other, of all tags with many together: readers compare each with
/// each, ten million in up to a second.
inline constexpr qint64 attributePairs = 10000000;
/// Bytes of a document that breaks the rules of XML, or has a document type, and is read nevertheless: as a DOM, which
/// is written again and read once more, some ten times as much is in memory for a while.
inline constexpr int mendedBytes = 32 << 20;

// --- GPX

/// Points of a file, of some 30 bytes each: those of a file of streamedFileBytes.
inline constexpr int points = 50000000;
/// Points of one comma text, which is in memory beside them; we write half as many.
inline constexpr int textPoints = 2000000;
/// Segments of a file, each of which takes as long as ten points.
inline constexpr int segments = 200000;
/// Tracks of a file with their enclaves, of some 500 bytes each. Drawing them takes longer than reading.
inline constexpr int tracks = 100000;
/// Waypoints and routes together. Each becomes a track.
inline constexpr int wayPoints = tracks;
/// Points of all routes together, which are held twice.
inline constexpr int routePoints = 500000;

// --- KML

/// Holes of areas and segments of lines in a document.
inline constexpr int geometryParts = 100000;
/// Points, lines and areas of a document. Each becomes a track, in a way that takes longer than that of GPX.
inline constexpr int geometries = 50000;
/// Positions of all of them together, of some 40 bytes each until they are drawn.
inline constexpr int positions = 2500000;
/// Styles that refer to one another: they may do so in a ring.
inline constexpr int styleChain = 16;
/// Characters of the address of a style; longer ones lead nowhere.
inline constexpr int referenceCharacters = 1000;
/// Characters of a number; none that is longer has a meaning.
inline constexpr int numberCharacters = 100;
/// Characters of the text of one position.
inline constexpr int positionCharacters = 1000;

// --- ZIP archives

/// Bytes of the table of contents, which is in memory as a whole.
inline constexpr int archiveTableBytes = 8 << 20;
/// Entries that are looked at; those behind are not, which is reported.
inline constexpr int archiveEntries = 10000;
/// Bytes of an entry as they really come out, whatever its headers claim.
inline constexpr int archiveEntryBytes = documentBytes;
/// Bytes that come out of a packed one: deflated text has 5 to 20, a bomb up to 1032.
inline constexpr int archiveRatio = 200;
/// Bytes that may come out at any ratio.
inline constexpr int archiveFreeBytes = 1 << 20;

// --- Pictures and tiles

/// Of a picture, of usually four bytes each in memory: a scan of 8000 x 8000.
inline constexpr int picturePixels = 64000000;
/// Pixels of the longer side of a picture; JPEG and GIF know no more. Decoders take room for each row.
inline constexpr int pictureSide = 65535;
/// Bytes of its file, of which some decoders read all: those pixels not packed, in three or four bytes each.
inline constexpr int pictureFileBytes = 256 << 20;
/// Bytes of a picture in memory, with what its decoder holds beside: a scan of that size in a TIFF of one strip, or in
/// a progressive JPEG that has a quarter of the colours.
inline constexpr int pictureMemoryBytes = 450000000;
/// Segments of a JPEG, real ones of which have some hundred: decoders go over those that they keep for each further
/// one.
inline constexpr int jpegSegments = 2000;
/// Scans of a JPEG, in each of which a decoder goes over the whole picture; progressive ones have some ten.
inline constexpr int jpegScans = 100;
/// Pixels of a JPEG for each component of each scan, of up to 0.6 ns each: the usual ones have 14 for each pixel.
inline constexpr qint64 jpegSamples = 1200000000;
inline constexpr qint64 jpegSamplesOfTile = 20000000;
/// Bytes in memory of a text of a PNG that is packed, which may have up to eight megabytes and is held several times.
inline constexpr int pngPackedTextBytes = 40000000;
/// Bytes of a JPEG, PNG or TIFF that are none of its pixels: texts, colour profiles, places of strips and tiles in a
/// TIFF, twelve for each chunk of a PNG.
inline constexpr int pictureBytesBesidePixels = 8 << 20;
/// Bytes of a tile as it is stored.
inline constexpr int tileBytes = 8 << 20;
/// Bytes of a value or a row in a tile file, at which SQLite gives up; smaller tiles are refused as too large.
inline constexpr int tileRowBytes = 2 * tileBytes;
/// Bytes that all tile files that are open take together, beside their tiles; usual are two megabytes for each.
inline constexpr int tileDatabasesBytes = 64 << 20;
/// Milliseconds of processor time that opening a tile file may take; usual are less than ten.
inline constexpr int tileOpeningMs = 200;
/// Milliseconds of processor time that each query for a tile may take in any case; usual is less than one.
inline constexpr int tileQueryMs = 10;
/// The same for tables of which nothing is computed: without an index all of 100,000 tiles are searched for each.
inline constexpr int storedTileQueryMs = 200;
/// Milliseconds that all queries of a file may take beyond that.
inline constexpr int tileQueriesMs = 1200;
/// Pixels of the longer side of a tile as it is stored; usual are 256 and 512. Up to a hundred are shown at once.
inline constexpr int tileSide = 1024;
/// Characters of a value in the description of a tile file, of which only short ones are used.
inline constexpr int tileMetadataCharacters = 4096;
/// Values of such a description; there are some twenty.
inline constexpr int tileMetadataRows = 1000;

} // namespace KRInputLimits
