# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""Screens side by side in an Xvnc, which takes their arrangement from its viewer: as real to X's programs as any."""
import socket
import struct

# https://github.com/rfbproto/rfbproto/blob/master/rfbproto.rst
NO_AUTHENTICATION, SHARED = b"\1", b"\1"
SET_ENCODINGS, FRAMEBUFFER_UPDATE_REQUEST, SET_DESKTOP_SIZE = 2, 3, 251
EXTENDED_DESKTOP_SIZE = -308


def arrange(path, sizes):
    """Asks the server at that socket for screens of these (width, height), from left to right."""
    with socket.socket(socket.AF_UNIX) as connection:
        connection.settimeout(5)
        connection.connect(str(path))
        stream = connection.makefile("rwb", buffering=0)

        def read(count):
            data = b""
            while len(data) < count:
                if not (part := stream.read(count - len(data))):
                    raise ConnectionError("the X server hung up")
                data += part
            return data

        stream.write(read(12))  # its version of the protocol is ours
        read(read(1)[0])
        stream.write(NO_AUTHENTICATION)
        read(4)
        stream.write(SHARED)
        read(struct.unpack(">20xI", read(24))[0])
        stream.write(struct.pack(">BxHi", SET_ENCODINGS, 1, EXTENDED_DESKTOP_SIZE))
        stream.write(struct.pack(">BBHHHH", FRAMEBUFFER_UPDATE_REQUEST, 0, 0, 0, 1, 1))
        read(4)  # then it knows what we understand
        lefts = [sum(width for width, _ in sizes[:number]) for number in range(len(sizes))]
        screens = [struct.pack(">IHHHHI", number + 1, left, 0, width, height, 0)
                   for number, (left, (width, height)) in enumerate(zip(lefts, sizes))]
        stream.write(struct.pack(">BxHHBx", SET_DESKTOP_SIZE, sum(width for width, _ in sizes),
                                 max(height for _, height in sizes), len(sizes)) + b"".join(screens))
        connection.shutdown(socket.SHUT_WR)
        while stream.read(4096):
            pass  # until it has read all that, and hangs up
