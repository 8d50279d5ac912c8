"""The network between one device and the server: a port that can be shut, or go silent, as a wire can."""

import contextlib
import socket
import threading


class Gate:
    """Forwards what comes to `port`. Its threads end with their connections."""

    def __init__(self, server_port):
        self.server_port = server_port
        self.passing = threading.Event()
        self.passing.set()
        self.lock = threading.Lock()
        self.sockets = set()
        self.listener = None
        self.port = 0
        self.connections = 0
        self.open()

    def open(self):
        self.passing.set()
        if self.listener:
            return
        self.listener = socket.socket()
        self.listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        self.listener.bind(("127.0.0.1", self.port))
        self.port = self.listener.getsockname()[1]
        self.listener.listen()
        threading.Thread(target=self._accept, args=(self.listener,), daemon=True).start()

    def shut(self):
        """Refuses who comes, and hangs up on who is there."""
        listener, self.listener = self.listener, None
        if listener:
            listener.shutdown(socket.SHUT_RDWR)
            listener.close()
        self.passing.set()
        with self.lock:
            for each in self.sockets:
                with contextlib.suppress(OSError):
                    each.shutdown(socket.SHUT_RDWR)

    def silence(self):
        """Keeps all connections, and nothing gets through."""
        self.passing.clear()

    def _accept(self, listener):
        while True:
            try:
                client, _ = listener.accept()
            except OSError:
                return
            try:
                server = socket.create_connection(("127.0.0.1", self.server_port), timeout=10)
            except OSError:
                client.close()
                continue
            server.settimeout(None)
            self.connections += 1
            with self.lock:
                self.sockets |= {client, server}
            for pair in ((client, server), (server, client)):
                threading.Thread(target=self._forward, args=pair, daemon=True).start()

    def _forward(self, source, sink):
        with contextlib.suppress(OSError):
            while piece := source.recv(65536):
                self.passing.wait()
                sink.sendall(piece)
        for each in (source, sink):
            with contextlib.suppress(OSError):
                each.shutdown(socket.SHUT_RDWR)
        with self.lock:
            self.sockets -= {source, sink}
        source.close()
