// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Decodes a film with FFmpeg's libraries, on the thread that asks for frames and without a thread of its own: at 12
// small frames a second that costs less than keeping a player beside it.
#include "film/Film.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cstring>

namespace orrinvale
{

namespace
{

template <auto release>
struct Released {
    template <typename T>
    void operator()(T* object) const
    {
        release(&object);
    }
};
struct ScalerReleased {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
struct InputReleased {
    void operator()(AVIOContext* input) const
    {
        av_freep(&input->buffer);
        avio_context_free(&input);
    }
};

constexpr auto inputBuffer = 16384; // bytes

class DecodedFilm final : public Film
{
public:
    DecodedFilm(const unsigned char* data, std::size_t size) : m_data(data), m_size(static_cast<std::int64_t>(size)) {}

    bool open()
    {
        av_log_set_level(AV_LOG_QUIET);
        m_input.reset(avio_alloc_context(static_cast<unsigned char*>(av_malloc(inputBuffer)), inputBuffer, 0, this,
                                         &read, nullptr, &seek));
        auto* format = avformat_alloc_context();
        format->pb = m_input.get();
        if (avformat_open_input(&format, nullptr, nullptr, nullptr) < 0) // frees it on failure
            return false;
        m_format.reset(format);
        m_stream = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
        return m_stream >= 0 && openDecoder(*format->streams[m_stream]);
    }

    QSize size() const override { return {m_decoder->width, m_decoder->height}; }
    std::chrono::nanoseconds frameDuration() const override { return m_frameDuration; }

    QImage nextFrame(const QSize& size) override
    {
        // Once more from the beginning, at most: a film without a single frame must not spin.
        if (!decodeFrame() && !(rewind() && decodeFrame()))
            return {};
        return converted(size);
    }

private:
    bool openDecoder(const AVStream& stream)
    {
        const auto* codec = avcodec_find_decoder(stream.codecpar->codec_id);
        m_decoder.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
        if (!m_decoder || avcodec_parameters_to_context(m_decoder.get(), stream.codecpar) < 0)
            return false;
        m_decoder->thread_count = 1;
        const auto rate = stream.avg_frame_rate;
        if (avcodec_open2(m_decoder.get(), codec, nullptr) < 0 || m_decoder->width <= 0 || m_decoder->height <= 0 ||
            rate.num <= 0 || rate.den <= 0)
            return false;
        m_frameDuration = std::chrono::nanoseconds(1'000'000'000LL * rate.den / rate.num);
        return true;
    }

    bool decodeFrame()
    {
        for (;;) {
            const auto status = avcodec_receive_frame(m_decoder.get(), m_frame.get());
            if (status == 0)
                return true;
            if (status != AVERROR(EAGAIN) || !feedDecoder())
                return false;
        }
    }

    // False after the flush at the film's end has been fed as well.
    bool feedDecoder()
    {
        if (m_isDraining)
            return false;
        while (av_read_frame(m_format.get(), m_packet.get()) >= 0) {
            const auto isOurs = m_packet->stream_index == m_stream;
            const auto status = isOurs ? avcodec_send_packet(m_decoder.get(), m_packet.get()) : 0;
            av_packet_unref(m_packet.get());
            if (isOurs)
                return status >= 0;
        }
        m_isDraining = true;
        return avcodec_send_packet(m_decoder.get(), nullptr) >= 0;
    }

    bool rewind()
    {
        avcodec_flush_buffers(m_decoder.get());
        m_isDraining = false;
        return av_seek_frame(m_format.get(), m_stream, 0, AVSEEK_FLAG_BACKWARD) >= 0;
    }

    // The scaler writes whole vectors, past the end of a line that is no multiple of them.
    static QImage imageWithRoom(const QSize& size)
    {
        constexpr int vector = 64;
        const auto stride = (size.width() * 4 + vector - 1) / vector * vector;
        auto* bytes = static_cast<uchar*>(av_malloc(static_cast<std::size_t>(stride) * size.height() + vector));
        return bytes ? QImage(bytes, size.width(), size.height(), stride, QImage::Format_RGB32, av_free, bytes)
                     : QImage();
    }

    QImage converted(const QSize& size)
    {
        m_scaler.reset(sws_getCachedContext(m_scaler.release(), m_frame->width, m_frame->height,
                                            static_cast<AVPixelFormat>(m_frame->format), size.width(), size.height(),
                                            AV_PIX_FMT_RGB32, SWS_AREA, nullptr, nullptr, nullptr));
        auto image = imageWithRoom(size);
        if (!m_scaler || image.isNull())
            return {};
        const auto* coefficients = sws_getCoefficients(
            m_frame->colorspace == AVCOL_SPC_UNSPECIFIED ? SWS_CS_DEFAULT : static_cast<int>(m_frame->colorspace));
        sws_setColorspaceDetails(m_scaler.get(), coefficients, m_frame->color_range == AVCOL_RANGE_JPEG, coefficients,
                                 1, 0, 1 << 16, 1 << 16);
        std::uint8_t* const planes[] = {image.bits()};
        const int strides[] = {static_cast<int>(image.bytesPerLine())};
        sws_scale(m_scaler.get(), m_frame->data, m_frame->linesize, 0, m_frame->height, planes, strides);
        return image;
    }

    static int read(void* opaque, std::uint8_t* buffer, int wanted)
    {
        auto& film = *static_cast<DecodedFilm*>(opaque);
        const auto count = std::min<std::int64_t>(wanted, film.m_size - film.m_position);
        if (count <= 0)
            return AVERROR_EOF;
        std::memcpy(buffer, film.m_data + film.m_position, static_cast<std::size_t>(count));
        film.m_position += count;
        return static_cast<int>(count);
    }

    static std::int64_t seek(void* opaque, std::int64_t offset, int whence)
    {
        auto& film = *static_cast<DecodedFilm*>(opaque);
        if (whence == AVSEEK_SIZE)
            return film.m_size;
        const auto base = whence == SEEK_CUR ? film.m_position : whence == SEEK_END ? film.m_size : 0;
        if (base + offset < 0 || base + offset > film.m_size)
            return AVERROR(EINVAL);
        return film.m_position = base + offset;
    }

    const unsigned char* m_data;
    std::int64_t m_size; // bytes
    std::int64_t m_position = 0;
    std::unique_ptr<AVIOContext, InputReleased> m_input; // outlives the format that reads it
    std::unique_ptr<AVFormatContext, Released<avformat_close_input>> m_format;
    std::unique_ptr<AVCodecContext, Released<avcodec_free_context>> m_decoder;
    std::unique_ptr<AVFrame, Released<av_frame_free>> m_frame{av_frame_alloc()};
    std::unique_ptr<AVPacket, Released<av_packet_free>> m_packet{av_packet_alloc()};
    std::unique_ptr<SwsContext, ScalerReleased> m_scaler;
    std::chrono::nanoseconds m_frameDuration{0};
    int m_stream = -1;
    bool m_isDraining = false;
};

} // namespace

} // namespace orrinvale

extern "C" __attribute__((visibility("default"))) orrinvale::Film* ORRINVALE_FILM_ENTRY_POINT(const unsigned char* data,
                                                                                              std::size_t size)
{
    auto film = std::make_unique<orrinvale::DecodedFilm>(data, size);
    return film->open() ? film.release() : nullptr;
}
