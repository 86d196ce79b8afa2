"""An FTP server for UploadTest on 127.0.0.1, port 21.

    ftp_server.py FOLDER [RIGHTS]

Serves FOLDER to anonymous users with these rights, or to nobody when none are given. Says "ready",
or why it can't be, on standard output; writes each command that it gets to FOLDER/commands; ends
with its standard input.
"""
import logging
import os
import sys
import threading
import warnings


def main():
    folder, rights = sys.argv[1], "".join(sys.argv[2:])
    try:
        from pyftpdlib.authorizers import DummyAuthorizer
        from pyftpdlib.handlers import FTPHandler
        from pyftpdlib.servers import FTPServer
    except ImportError as error:
        return f"no FTP server: {error}"

    commands = open(os.path.join(folder, "commands"), "wb", buffering=0)

    class Handler(FTPHandler):
        authorizer = DummyAuthorizer()
        auth_failed_timeout = 0

        def pre_process_command(self, line, cmd, arg):
            commands.write(line.encode() + b"\n")
            super().pre_process_command(line, cmd, arg)

    logging.basicConfig(level=logging.ERROR)
    warnings.simplefilter("ignore")  # about anonymous users who may write
    if rights:
        Handler.authorizer.add_anonymous(folder, perm=rights)
    try:
        server = FTPServer(("127.0.0.1", 21), Handler)
    except OSError as error:
        return f"port 21 of 127.0.0.1 can't be bound: {error}"

    def end_with_input():
        sys.stdin.read()
        os._exit(0)

    threading.Thread(target=end_with_input, daemon=True).start()
    print("ready", flush=True)
    server.serve_forever(handle_exit=False)


print(main(), flush=True)
