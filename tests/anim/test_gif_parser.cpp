// The byte reader and the block walk, on GIFs assembled byte by byte.

#include "GifTestSupport.h"

#include "anim/GifByteReader.h"
#include "common/RunTimeError.h"

#include <gtest/gtest.h>

using namespace zrt;

namespace {

// Assembles a GIF from its blocks; the image data are valid 2x2 LZW of index 0.
class GifBytes {
public:
    explicit GifBytes(const char *signature = "GIF89a", bool globalTable = true, int screen = 500)
    {
        m_bytes.append(signature, 6);
        Word(screen);
        Word(screen);
        m_bytes.append(char(globalTable ? 0x81 : 0x00));
        m_bytes.append("\0\0", 2);
        if (globalTable)
            m_bytes.append("\x10\x20\x30\x40\x50\x60\x70\x80\x90\xA0\xB0\xC0", 12);
    }
    GifBytes &Control(int disposal, int delay, int transparent = -1)
    {
        m_bytes.append("\x21\xF9\x04", 3);
        m_bytes.append(char((disposal << 2) | (transparent >= 0 ? 1 : 0)));
        Word(delay);
        m_bytes.append(char(transparent >= 0 ? transparent : 0));
        m_bytes.append('\0');
        return *this;
    }
    GifBytes &Image(int left, int top, int w, int h, int localBits = 0)
    {
        m_bytes.append(',');
        Word(left);
        Word(top);
        Word(w);
        Word(h);
        m_bytes.append(char(localBits ? 0x80 | (localBits - 1) : 0));
        for (int i = 0; i < 3 * (1 << localBits) && localBits; ++i)
            m_bytes.append(char(i));
        m_bytes.append("\x02\x02\x84\x51\x00", 5); // code size 2, one 2-byte sub-block, end
        return *this;
    }
    GifBytes &Raw(const QByteArray &bytes) { m_bytes.append(bytes); return *this; }
    QByteArray Done() const { return m_bytes + ';'; }
    QByteArray Open() const { return m_bytes; }

private:
    void Word(int v) { m_bytes.append(char(v & 255)); m_bytes.append(char(v >> 8)); }
    QByteArray m_bytes;
};

int Parse(const QByteArray &bytes, GifImage &gif) { return ParseGif(bytes, gif); }

} // namespace

TEST(GifByteReader, ReadsLittleEndianAndRaisesEndOfFilePastTheData)
{
    const QByteArray bytes("\x01\x02\x03", 3);
    GifByteReader in(bytes);
    EXPECT_EQ(in.ReadGifWord(), 0x0201);
    try {
        in.ReadGifWord();
        FAIL() << "a word whose second byte is missing must raise";
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), 53);
        EXPECT_EQ(e.description(), "End of File");
    }
    EXPECT_EQ(in.ReadGifByte(), 3);
    EXPECT_THROW(in.ReadGifByte(), RunTimeError);
}

TEST(GifByteReader, BytesPastTheEndReadNothingAndLeaveTheCursor)
{
    const QByteArray bytes("abcd", 4);
    GifByteReader in(bytes);
    in.Seek(2);
    EXPECT_TRUE(in.ReadGifBytes(3).isEmpty());
    EXPECT_EQ(in.GifPos(), 2);
    EXPECT_EQ(in.ReadGifBytes(2), QByteArray("cd"));
}

TEST(GifByteReader, PaletteThatWouldNotFitRaisesBeforeReadingAnything)
{
    const QByteArray bytes("\x01\x02\x03\x04\x05\x06\x07", 7);
    GifByteReader in(bytes);
    GifPaletteRow row{};
    EXPECT_THROW(in.ReadGifPalette(row, 2), RunTimeError); // 12 bytes wanted
    EXPECT_EQ(in.GifPos(), 0);
    EXPECT_EQ(row[0], 0u);
    in.ReadGifPalette(row, 1);
    EXPECT_EQ(row[0], 0x010203u);
    EXPECT_EQ(row[1], 0x040506u);
}

TEST(GifByteReader, SkippingSubBlocksNeverRaisesEvenWhenTheChainRunsOff)
{
    const QByteArray chain("\x02\xAA\xBB\x01\xCC\x00\x7F", 7);
    GifByteReader in(chain);
    in.SkipGifSubBlocks();
    EXPECT_EQ(in.GifPos(), 6);
    const QByteArray cut("\x05\xAA", 2);
    GifByteReader off(cut);
    EXPECT_NO_THROW(off.SkipGifSubBlocks());
    EXPECT_GT(off.GifPos(), off.Size());
}

TEST(GifParser, SignatureIsAcceptedInAnyCaseMixAndNothingElse)
{
    GifImage gif;
    for (const char *sig : {"GIF89a", "GIF89A", "gif87a", "GiF87A"})
        EXPECT_EQ(Parse(GifBytes(sig).Image(0, 0, 2, 2).Done(), gif), 1) << sig;
    EXPECT_EQ(Parse(GifBytes("GIF88a").Image(0, 0, 2, 2).Done(), gif), 0);
    EXPECT_EQ(Parse(QByteArray("GIF8"), gif), 0);
    EXPECT_EQ(Parse(QByteArray(), gif), 0);
}

TEST(GifParser, LoopCountComesFromTheNetscapeBlockOnlyWithA3ByteSubBlock)
{
    GifImage gif;
    const QByteArray loops("\x21\xFF\x0Bnetscape2.0\x03\x01\x07\x00\x00", 19);
    ASSERT_EQ(Parse(GifBytes().Raw(loops).Image(0, 0, 2, 2).Done(), gif), 1);
    EXPECT_EQ(gif.Loops, 7);

    const QByteArray odd("\x21\xFF\x0BNETSCAPE2.0\x04\x01\x07\x00\x09\x00", 20);
    ASSERT_EQ(Parse(GifBytes().Raw(odd).Image(0, 0, 2, 2).Done(), gif), 1);
    EXPECT_EQ(gif.Loops, 0);

    const QByteArray other("\x21\xFF\x0BOTHERAPP1.0\x03\x01\x07\x00\x00", 19);
    ASSERT_EQ(Parse(GifBytes().Raw(other).Image(0, 0, 2, 2).Done(), gif), 1);
    EXPECT_EQ(gif.Loops, 0);
}

TEST(GifParser, DisposalFoldsOntoTwoBitsAndRestoreOnTheFirstFrameReadsAsNone)
{
    GifImage gif;
    const QByteArray bytes = GifBytes()
                                 .Control(3, 1).Image(0, 0, 2, 2)
                                 .Control(6, 1).Image(0, 0, 2, 2)
                                 .Control(7, 1).Image(0, 0, 2, 2)
                                 .Control(3, 1).Image(0, 0, 2, 2)
                                 .Control(5, 1).Image(0, 0, 2, 2)
                                 .Done();
    ASSERT_EQ(Parse(bytes, gif), 5);
    EXPECT_EQ(gif.Frame(1).Disposal, 0);
    EXPECT_EQ(gif.Frame(2).Disposal, 2);
    EXPECT_EQ(gif.Frame(3).Disposal, 3);
    EXPECT_EQ(gif.Frame(4).Disposal, 3);
    EXPECT_EQ(gif.Frame(5).Disposal, 1);
}

TEST(GifParser, DelayIsTimesTenUnclampedAndASecondControlReplacesTheFirst)
{
    GifImage gif;
    const QByteArray bytes = GifBytes()
                                 .Control(2, 65535).Image(0, 0, 2, 2)
                                 .Control(1, 4, 9).Control(2, 0).Image(0, 0, 2, 2)
                                 .Image(0, 0, 2, 2)
                                 .Done();
    ASSERT_EQ(Parse(bytes, gif), 3);
    EXPECT_EQ(gif.Frame(1).DelayMs, 655350);
    EXPECT_EQ(gif.Frame(2).DelayMs, 0);
    EXPECT_EQ(gif.Frame(2).Disposal, 2);
    EXPECT_EQ(gif.Frame(2).TransparentFlag, 0);
    EXPECT_EQ(gif.Frame(3).DelayMs, 0);
    EXPECT_EQ(gif.Frame(3).Disposal, 0);
}

TEST(GifParser, TransparencyAndFirstBlockPositionsAreRecorded)
{
    GifImage gif;
    const GifBytes head;
    const int start = int(head.Open().size());
    const QByteArray bytes = GifBytes().Control(1, 5, 3).Image(1, 2, 2, 2).Image(0, 0, 2, 2).Done();
    ASSERT_EQ(Parse(bytes, gif), 2);
    EXPECT_EQ(gif.Frame(1).TransparentFlag, 1);
    EXPECT_EQ(gif.Frame(1).TransparentIndex, 3);
    EXPECT_EQ(gif.Frame(1).StripOffset, start);          // its graphic control
    EXPECT_EQ(gif.Block(1).Start, start + 8);             // its image separator
    EXPECT_EQ(gif.Block(1).Size, 15);
    EXPECT_EQ(gif.Frame(2).StripOffset, gif.Block(2).Start);
    EXPECT_EQ(gif.Frame(2).TransparentFlag, 0);
}

TEST(GifParser, StrayZeroIsPassedOverAndAnyOtherStrayByteEndsTheWalk)
{
    GifImage gif;
    EXPECT_EQ(Parse(GifBytes().Image(0, 0, 2, 2).Raw(QByteArray(2, '\0')).Image(0, 0, 2, 2).Done(), gif), 2);
    EXPECT_EQ(Parse(GifBytes().Image(0, 0, 2, 2).Raw("\x42").Image(0, 0, 2, 2).Done(), gif), 1);
}

TEST(GifParser, FileCutInsideAFrameKeepsTheFramesBeforeIt)
{
    GifImage gif;
    const QByteArray whole = GifBytes().Image(0, 0, 2, 2).Image(0, 0, 2, 2).Image(0, 0, 2, 2).Done();
    const QByteArray cutInData = whole.left(whole.size() - 4);
    EXPECT_EQ(Parse(cutInData, gif), 2);
    const QByteArray cutInDescriptor = whole.left(whole.size() - 10);
    EXPECT_EQ(Parse(cutInDescriptor, gif), 2);
    EXPECT_EQ(Parse(whole.left(whole.size() - 1), gif), 3); // only the trailer missing
    EXPECT_EQ(Parse(whole.left(20), gif), 0);              // inside the global table
}

TEST(GifParser, LocalTablesOnlyStartAtRowOneAndRowZeroStaysEmpty)
{
    GifImage gif;
    const QByteArray bytes = GifBytes("GIF89a", false).Image(0, 0, 2, 2, 2).Image(0, 0, 2, 2, 1).Done();
    ASSERT_EQ(Parse(bytes, gif), 2);
    EXPECT_EQ(gif.GifPaletteCount, 2);
    EXPECT_EQ(gif.Frame(1).PaletteIndex, 1);
    EXPECT_EQ(gif.Frame(2).PaletteIndex, 2);
    for (quint32 entry : gif.GifPalettes[0])
        EXPECT_EQ(entry, 0u);
    EXPECT_EQ(gif.GifPalettes[1][1], 0x030405u);
    EXPECT_EQ(gif.GifPalettes[1][4], 0u); // beyond the file's 4 entries
}

TEST(GifParser, AnImageWithNoTableToUseMakesTheWholeFileUnusable)
{
    GifImage gif;
    const QByteArray bytes = GifBytes("GIF89a", false).Image(0, 0, 2, 2, 1).Image(0, 0, 2, 2).Done();
    EXPECT_EQ(Parse(bytes, gif), 0);
    EXPECT_EQ(gif.FrameCount(), 0);
}

TEST(GifParser, SizeComesFromTheFramesNotTheLogicalScreen)
{
    GifImage gif;
    ASSERT_EQ(Parse(GifBytes("GIF89a", true, 500).Image(3, 4, 10, 6).Image(0, 0, 5, 20).Done(), gif), 2);
    EXPECT_EQ(gif.ActualWidth, 13);
    EXPECT_EQ(gif.ActualHeight, 20);
}

TEST(GifParser, ColourTablesHoldOnlyTheEntriesTheFileGives)
{
    GifImage gif;
    const QByteArray bytes = GifBytes("GIF89a", false).Image(0, 0, 2, 2, 1).Image(0, 0, 2, 2, 8).Done();
    ASSERT_EQ(Parse(bytes, gif), 2);
    EXPECT_EQ(gif.GifPalettes[1].Entries(), 2);
    EXPECT_EQ(gif.GifPalettes[2].Entries(), 256);
    EXPECT_EQ(gif.GifPalettes[0].Entries(), 0) << "no global table";
    // Read as full rows all the same.
    EXPECT_EQ(gif.GifPalettes[1][1], 0x030405u);
    EXPECT_EQ(gif.GifPalettes[1][2], 0u);
    EXPECT_EQ(std::distance(gif.GifPalettes[1].begin(), gif.GifPalettes[1].end()), 256);
    EXPECT_EQ(GifColourTable(gif.GifPalettes[1]).size(), 256);
}

TEST(GifParser, ManyTinyFramesAreAllKeptInFileOrder)
{
    GifBytes many;
    for (int i = 0; i < 20000; ++i)
        many.Image(i % 7, 0, 1, 1, 1);
    GifImage gif;
    ASSERT_EQ(Parse(many.Done(), gif), 20000);
    EXPECT_EQ(gif.Blocks.size(), 20000u);
    EXPECT_EQ(gif.GifPaletteCount, 20000);
    EXPECT_EQ(gif.Frame(20000).Left, 19999 % 7);
    EXPECT_EQ(gif.Block(20000).Start, gif.Block(19999).Start + gif.Block(19999).Size);
    EXPECT_EQ(gif.ActualWidth, 7);
}

TEST(GifFrameStrip, AStripWithinTheMemoryBoundIsMadeAndOneBeyondItIsRefusedWithItsReason)
{
    // 259 frames of 480 x 270, all disposed to background: a strip of 33.6 million pixels.
    GifBytes film("GIF89a", true, 480);
    for (int i = 0; i < 259; ++i)
        film.Control(2, 4).Image(0, 0, 480, 270);
    GifImage gif;
    const QByteArray bytes = film.Done();
    ASSERT_EQ(Parse(bytes, gif), 259);
    const GifBuildPlan plan = PlanGifBuild(gif);
    GifFrameStrip strip;
    ASSERT_TRUE(strip.Create(gif, plan)) << strip.RefusalReason().toStdString();
    EXPECT_EQ(strip.Image().width(), 480 * 259);
    EXPECT_TRUE(strip.RefusalReason().isEmpty());
    EXPECT_TRUE(strip.RenderFrame(bytes, gif, 1));

    // Frames as wide and high as a GIF allows, kept on a canvas: far beyond the bound.
    GifBytes huge("GIF89a", true, 65535);
    for (int i = 0; i < 3; ++i)
        huge.Control(1, 4).Image(0, 0, 65535, 65535);
    const QByteArray hugeBytes = huge.Done();
    ASSERT_EQ(Parse(hugeBytes, gif), 3);
    const GifBuildPlan hugePlan = PlanGifBuild(gif);
    EXPECT_GT(GifFrameStrip::BytesNeeded(gif, hugePlan), GifFrameStrip::kMaxBytes);
    EXPECT_FALSE(strip.Create(gif, hugePlan));
    EXPECT_TRUE(strip.IsNull());
    EXPECT_TRUE(strip.RefusalReason().contains("MB")) << strip.RefusalReason().toStdString();
}
