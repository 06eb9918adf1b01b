# Mail and name servers on loopback for the tests of sending. Prints "port N", runs until its input ends.
# SPDX-License-Identifier: MIT
#
#   mail_servers.py smtp OUT [--tls CERT KEY | --starttls CERT KEY | --broken-starttls] [--user NAME PASSWORD]
#                            [--refuse ADDRESS]
#       each message as one line of JSON in the file OUT, parsed by Python's own e-mail library
#   mail_servers.py stall WHERE      a server that falls silent: "greeting", "command", "data" or "end"
#   mail_servers.py talkative        a server that refuses in many lines
#   mail_servers.py close            a server that greets and hangs up
#   mail_servers.py busy             a server that sends everybody away for now
#   mail_servers.py dns RECORDS      JSON: {"name": {"MX": [[10, "host"]], "A": ["127.0.0.1"]}}
import asyncio
import base64
import email
import email.policy
import json
import ssl
import sys
import threading

from aiosmtpd.smtp import SMTP, AuthResult


def options(arguments):
    found = {}
    while arguments:
        name = arguments.pop(0)
        count = {"--broken-starttls": 0, "--refuse": 1}.get(name, 2)
        found[name] = [arguments.pop(0) for _ in range(count)]
    return found


def context(certificate, key):
    made = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    made.load_cert_chain(certificate, key)
    return made


class Keeper:
    def __init__(self, out, refused):
        self.out, self.refused = out, refused

    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if address in self.refused:
            return "550 5.1.1 No such user here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, server, session, envelope):
        message = email.message_from_bytes(envelope.content, policy=email.policy.default)
        body = message.get_body(("plain",))
        record = {
            "sender": envelope.mail_from,
            "recipients": envelope.rcpt_tos,
            "encrypted": session.ssl is not None,
            "user": (session.auth_data or b"").decode(),
            "headers": [[name, str(value)] for name, value in message.items()],
            "body": body.get_content().replace("\r\n", "\n"),
            "defects": [repr(defect) for part in message.walk() for defect in part.defects]
            + [repr(defect) for value in message.values() for defect in value.defects],
            "longest": max(len(line) for line in envelope.content.split(b"\r\n")),
            "attachments": [
                [part.get_filename(), part.get_content_type(), base64.b64encode(part.get_content()).decode()]
                for part in message.iter_attachments()
            ],
        }
        with open(self.out, "a") as file:
            file.write(json.dumps(record) + "\n")
        return "250 OK"


def smtp_factory(arguments):
    out, chosen = arguments[0], options(arguments[1:])
    settings = {"enable_SMTPUTF8": True, "hostname": "localhost"}
    listener = context(*chosen["--tls"]) if "--tls" in chosen else None
    if "--starttls" in chosen:
        settings["tls_context"] = context(*chosen["--starttls"])
    if "--user" in chosen:
        expected = [text.encode() for text in chosen["--user"]]

        def check(server, session, envelope, mechanism, data):
            good = [data.login, data.password] == expected
            return AuthResult(success=good, handled=False, auth_data=data.login)

        settings |= {"authenticator": check, "auth_required": True, "auth_require_tls": False}
    handler = Keeper(out, chosen.get("--refuse", []))
    return lambda: SMTP(handler, **settings), listener


class Hostile(asyncio.Protocol):
    """Greets and then behaves badly in the way of its name."""

    def __init__(self, way):
        self.way = way

    def connection_made(self, transport):
        self.transport = transport
        if self.way != "greeting":
            transport.write(b"421 4.3.2 Too busy\r\n" if self.way == "busy" else b"220 localhost\r\n")
        if self.way in ("close", "busy"):
            transport.close()

    def data_received(self, data):
        command = data[:4].upper()
        if self.way == "talkative" and command == b"MAIL":
            said = [b"535-5.7.8 Username and Password not accepted. See", b"535-5.7.8 https://example.com/help for more"]
            said += [b"535-5.7.8 " + b"and more " * 30] * 3 + [b"535 5.7.8 end"]
            self.transport.write(b"\r\n".join(said) + b"\r\n")
        elif self.way == "talkative" or self.way in ("data", "end") and command in (b"EHLO", b"MAIL", b"RCPT"):
            self.transport.write(b"250 OK\r\n")
        elif self.way in ("data", "end") and command == b"DATA":
            self.transport.write(b"354 go on\r\n")
            if self.way == "data":
                self.transport.pause_reading()


class BrokenStartTls(SMTP):
    """Offers encryption and fails in the handshake."""

    async def smtp_STARTTLS(self, argument):
        await self.push("220 go")
        self.transport.write(b"this is no handshake")
        self.transport.close()


def serve(factory, listener):
    async def run():
        loop = asyncio.get_running_loop()
        server = await loop.create_server(factory, "127.0.0.1", 0, ssl=listener)
        print("port", server.sockets[0].getsockname()[1], flush=True)
        await loop.run_in_executor(None, sys.stdin.read)

    asyncio.run(run())


def serve_names(records):
    from dnslib import QTYPE, RR, A, MX
    from dnslib.server import DNSServer

    class Answers:
        def resolve(self, request, handler):
            reply = request.reply()
            name = str(request.q.qname).rstrip(".").lower()
            kind = QTYPE[request.q.qtype]
            if name not in records:
                reply.header.rcode = 3
            elif records[name] == "broken":
                reply.header.rcode = 2
            for value in records.get(name, {}).get(kind, []) if records.get(name) != "broken" else []:
                data = MX(value[1], value[0]) if kind == "MX" else A(value)
                reply.add_answer(RR(request.q.qname, getattr(QTYPE, kind), rdata=data, ttl=1))
            return reply

    server = DNSServer(Answers(), port=0, address="127.0.0.1")
    threading.Thread(target=server.server.serve_forever, daemon=True).start()
    print("port", server.server.server_address[1], flush=True)
    sys.stdin.read()


kind, rest = sys.argv[1], sys.argv[2:]
if kind == "dns":
    serve_names(json.loads(rest[0]))
elif kind == "smtp" and "--broken-starttls" in rest:
    rest.remove("--broken-starttls")
    factory, _ = smtp_factory(rest)
    certificate = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    serve(lambda: BrokenStartTls(factory().event_handler, hostname="localhost", tls_context=certificate), None)
elif kind == "smtp":
    serve(*smtp_factory(rest))
else:
    serve(lambda: Hostile(rest[0] if kind == "stall" else kind), None)
