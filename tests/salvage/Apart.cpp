#include "Apart.h"

#include "support/Grammar.h"
#include "support/JpegMaker.h"

#include <algorithm>
#include <cstdio>

#include <jpeglib.h>

using namespace salvage;

namespace {

HuffmanTable tableOf(const JHUFF_TBL &from)
{
    HuffmanTable table;
    int symbols = 0;
    for (int i = 0; i < 16; ++i) {
        table.counts[size_t(i)] = from.bits[i + 1];
        symbols += from.bits[i + 1];
    }
    table.symbols.assign(from.huffval, from.huffval + symbols);
    return table;
}

Header headerOf(const jpeg_decompress_struct &state)
{
    Header header;
    header.frame = state.progressive_mode ? 0xC2 : 0xC0;
    header.width = quint16(state.image_width);
    header.height = quint16(state.image_height);
    for (int i = 0; i < state.num_components; ++i) {
        const jpeg_component_info &each = state.comp_info[i];
        header.components.push_back({quint8(each.component_id), quint8(each.h_samp_factor), quint8(each.v_samp_factor),
                                     quint8(each.quant_tbl_no)});
    }
    for (int i = 0; i < state.comps_in_scan; ++i) {
        const jpeg_component_info &each = *state.cur_comp_info[i];
        header.scan.push_back({quint8(each.component_id), quint8(each.dc_tbl_no << 4 | each.ac_tbl_no)});
    }
    for (int i = 0; i < NUM_QUANT_TBLS; ++i) {
        if (!state.quant_tbl_ptrs[i]) continue;
        for (int z = 0; z < 64; ++z)
            header.quant[quint8(i)][size_t(z)] = state.quant_tbl_ptrs[i]->quantval[placeOfZigzag(z)];
    }
    for (int i = 0; i < NUM_HUFF_TBLS; ++i) {
        if (state.dc_huff_tbl_ptrs[i]) header.huffman[quint8(i)] = tableOf(*state.dc_huff_tbl_ptrs[i]);
        if (state.ac_huff_tbl_ptrs[i]) header.huffman[quint8(0x10 | i)] = tableOf(*state.ac_huff_tbl_ptrs[i]);
    }
    header.spectral = {quint8(state.Ss), quint8(state.Se), quint8(state.Ah << 4 | state.Al)};
    header.restartInterval = quint16(state.restart_interval);
    return header;
}

BlockPlane planeOf(jpeg_decompress_struct &state, int component, jvirt_barray_ptr array)
{
    const jpeg_component_info &info = state.comp_info[component];
    BlockPlane plane{info.width_in_blocks, info.height_in_blocks, {}};
    for (JDIMENSION row = 0; row < info.height_in_blocks; ++row) {
        auto *const common = reinterpret_cast<j_common_ptr>(&state);
        JBLOCKARRAY rows = state.mem->access_virt_barray(common, array, row, 1, FALSE);
        for (JDIMENSION column = 0; column < info.width_in_blocks; ++column) {
            std::array<qint16, 64> block{};
            for (int z = 0; z < 64; ++z) block[size_t(z)] = rows[0][column][placeOfZigzag(z)];
            plane.blocks.push_back(block);
        }
    }
    return plane;
}

} // namespace

Apart takeApart(const QByteArray &jpeg)
{
    Apart apart;
    apart.file = jpeg;
    jpeg_decompress_struct state{};
    jpeg_error_mgr errors{};
    state.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&state);
    jpeg_mem_src(&state, reinterpret_cast<const unsigned char *>(jpeg.constData()), ulong(jpeg.size()));
    jpeg_read_header(&state, TRUE);
    apart.header = headerOf(state);
    jvirt_barray_ptr *arrays = jpeg_read_coefficients(&state);
    for (int i = 0; i < state.num_components; ++i) apart.planes.push_back(planeOf(state, i, arrays[i]));
    jpeg_finish_decompress(&state);
    jpeg_destroy_decompress(&state);

    qint64 from = 0;
    for (const SegmentPlace &place : segmentPlaces(jpeg)) {
        if (place.marker == words::SOS && from == 0) from = place.offset + 2 + place.length;
        if (place.marker == words::EOI) apart.data = jpeg.mid(int(from), int(place.offset - from));
    }
    return apart;
}

QString difference(const Coefficients &picture, const Apart &apart)
{
    for (size_t i = 0; i < apart.planes.size(); ++i) {
        const BlockPlane &plane = apart.planes[i];
        for (quint32 at = 0; at < plane.blocks.size(); ++at) {
            const qint16 *block = picture.block(i, at % plane.wide, at / plane.wide);
            if (std::equal(plane.blocks[at].begin(), plane.blocks[at].end(), block)) continue;
            return QStringLiteral("component %1, column %2, row %3").arg(i).arg(at % plane.wide).arg(at / plane.wide);
        }
    }
    return {};
}

Coefficients coefficientsOf(const Apart &apart)
{
    Coefficients picture(apart.header);
    for (size_t i = 0; i < apart.planes.size(); ++i) {
        const BlockPlane &plane = apart.planes[i];
        for (quint32 at = 0; at < plane.blocks.size(); ++at)
            std::copy(plane.blocks[at].begin(), plane.blocks[at].end(),
                      picture.block(i, at % plane.wide, at / plane.wide));
    }
    return picture;
}

int placeOfZigzag(int index)
{
    for (int diagonal = 0, passed = 0; diagonal < 15; ++diagonal) {
        const int first = std::max(0, diagonal - 7);
        const int length = std::min(diagonal, 7) - first + 1;
        if (index < passed + length) {
            const int up = first + (index - passed); // the smaller coordinate, from the diagonal's end
            const int row = diagonal % 2 ? up : diagonal - up;
            return row * 8 + diagonal - row;
        }
        passed += length;
    }
    return -1;
}

QByteArray packBits(const QByteArray &text)
{
    QByteArray plain;
    for (const char c : text)
        if (c == '0' || c == '1') plain.append(c);
    while (plain.size() % 8) plain.append('1');
    QByteArray packed;
    for (int at = 0; at < plain.size(); at += 8) {
        packed.append(char(plain.mid(at, 8).toInt(nullptr, 2)));
        if (packed.endsWith('\xFF')) packed.append('\0');
    }
    return packed;
}

std::vector<QByteArray> codesOf(const HuffmanTable &table)
{
    std::vector<QByteArray> codes;
    int next = 0;
    for (int length = 1; length <= 16; ++length, next *= 2)
        for (int i = 0; i < table.counts[size_t(length) - 1]; ++i)
            codes.push_back(QByteArray::number(next++, 2).rightJustified(length, '0'));
    return codes;
}

QByteArray dhtBody(int key, const HuffmanTable &table)
{
    QByteArray body(1, char(key));
    for (const quint8 count : table.counts) body.append(char(count));
    for (const quint8 symbol : table.symbols) body.append(char(symbol));
    return body;
}

const KnownTables &annexKOnly()
{
    static const KnownTables known({}, {});
    return known;
}

QImage shown(const QByteArray &jpeg)
{
    return QImage::fromData(jpeg, "JPG").convertToFormat(QImage::Format_RGB32);
}
