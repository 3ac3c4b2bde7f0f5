"""A web server that misbehaves: what it does wrong is told by the path of the request.

It reads one request a connection, answers as `BEHAVIOURS` says and closes. A behaviour that keeps
its client waiting ends by itself, since a client need not be able to.
"""

import re
import socket
import struct
import threading
import time

PATTERN = b"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ\n"
SILENCE_SECONDS = 1.5


def head(length=None, status="200 OK", *more):
    lines = [f"HTTP/1.1 {status}", "Connection: close", *more]
    if length is not None:
        lines.append(f"Content-Length: {length}")
    return "\r\n".join(lines).encode() + b"\r\n\r\n"


def whole(body, status="200 OK"):
    return lambda connection, request: connection.sendall(head(len(body), status) + body)


def raw(answer):
    return lambda connection, request: connection.sendall(answer)


def echo(connection, request):
    """The request as it came, to the byte."""
    connection.sendall(head(len(request)) + request)


def pattern(connection, request):
    """/pattern/N: N bytes; no length is told, the close ends them."""
    count = int(re.match(rb"\w+ /pattern/(\d+)", request)[1])
    body = (PATTERN * (count // len(PATTERN) + 1))[:count]
    connection.sendall(head() + body)


reset_wanted = threading.Event()
reset_done = threading.Event()
reset_delay = 0


def reset_after(seconds):
    global reset_delay
    reset_delay = seconds
    reset_done.clear()
    reset_wanted.set()


def reset_in_body(connection, request):
    """Resets the connection in the body when /reset-now or /reset-soon asks for it."""
    connection.sendall(head(100) + b"0123456789")
    reset_wanted.wait(20)
    time.sleep(reset_delay)
    # A close without the wait for delivery resets the connection.
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()
    reset_wanted.clear()
    reset_done.set()


def reset_now(connection, request):
    reset_after(0)
    reset_done.wait(20)
    connection.sendall(head(4) + b"done")


def reset_soon(connection, request):
    reset_after(0.5)
    connection.sendall(head(4) + b"soon")


def silent(connection, request):
    time.sleep(SILENCE_SECONDS)


def silent_in_body(connection, request):
    connection.sendall(head(100) + b"0123456789")
    time.sleep(SILENCE_SECONDS)


def drip(connection, request):
    connection.sendall(head(3))
    for byte in b"abc":
        time.sleep(1)
        connection.sendall(bytes([byte]))


def drip_head(connection, request):
    for part in (b"HTTP/1.1 2", b"00 OK\r\nContent-Len", b"gth: 3\r\n\r\nabc"):
        time.sleep(0.7)
        connection.sendall(part)


meeting = threading.Barrier(2)


def meet(connection, request):
    """Answers when two requests are here at once."""
    try:
        meeting.wait(20)
        connection.sendall(head(3) + b"met")
    except threading.BrokenBarrierError:
        meeting.reset()
        connection.sendall(head(5) + b"alone")


BEHAVIOURS = {
    "/echo": echo,
    "/pattern": pattern,
    "/close-before-status": raw(b""),
    "/close-in-status": raw(b"HTTP/1."),
    "/close-in-headers": raw(b"HTTP/1.1 200 OK\r\nContent-Le"),
    "/close-in-body": raw(head(100) + b"0123456789"),
    "/close-in-chunk": raw(head(None, "200 OK", "Transfer-Encoding: chunked") + b"64\r\n0123456789"),
    "/bad-chunk-size": raw(
        head(None, "200 OK", "Transfer-Encoding: chunked") + b"xyz\r\n0123456789\r\n0\r\n\r\n"
    ),
    "/reset-in-body": reset_in_body,
    "/reset-now": reset_now,
    "/reset-soon": reset_soon,
    "/longer-than-told": raw(head(5) + b"0123456789"),
    "/negative-length": raw(head(-1) + b"0123456789"),
    "/silent": silent,
    "/silent-in-body": silent_in_body,
    "/drip": drip,
    "/drip-head": drip_head,
    "/big-header": raw(head(4, "200 OK", "X-Big: " + "x" * 100_000) + b"body"),
    "/many-headers": raw(head(4, "200 OK", *(f"X-{i}: {i}" for i in range(2000))) + b"body"),
    "/garbage-status": raw(b"what is this?\r\n\r\nbody"),
    "/status-without-number": raw(b"HTTP/1.1 OK\r\nContent-Length: 4\r\n\r\nbody"),
    "/nul-in-body": whole(b"before\0behind"),
    "/invalid-utf8": whole(b"a\x80b\xffc\xe4\xb8"),
    "/chinese": whole("中文正文".encode()),
    "/not-in-936": whole("[ก][😀]".encode()),
    "/empty": whole(b""),
    "/meet": meet,
    "/404": whole(b"not here", "404 Not Found"),
    "/500": whole(b"broken", "500 Internal Server Error"),
}


def read_request(connection):
    request = b""
    while b"\r\n\r\n" not in request:
        more = connection.recv(65536)
        if not more:
            return request
        request += more
    length = re.search(rb"\r\nContent-Length: *(\d+)", request, re.IGNORECASE)
    wanted = request.index(b"\r\n\r\n") + 4 + (int(length[1]) if length else 0)
    while len(request) < wanted:
        more = connection.recv(65536)
        if not more:
            break
        request += more
    return request


def serve(connection):
    with connection:
        try:
            request = read_request(connection)
            # A client that takes this server for its proxy names the host, too.
            path = re.match(rb"\w+ (?:http://[^/]*)?(/[\w.-]*)", request)
            behaviour = BEHAVIOURS.get(path[1].decode()) if path else None
            (behaviour or whole(b"no such behaviour", "500 Unknown"))(connection, request)
            connection.shutdown(socket.SHUT_WR)
        except OSError:
            pass  # The client has gone; tests judge by what the client saw.


def start(address):
    """Listens on a free port of the address and serves on threads of its own. Gives the port."""
    listener = socket.create_server((address, 0), backlog=64)

    def accept():
        while True:
            connection, _ = listener.accept()
            threading.Thread(target=serve, args=(connection,), daemon=True).start()

    threading.Thread(target=accept, daemon=True).start()
    return listener.getsockname()[1]
