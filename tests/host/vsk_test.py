#!/usr/bin/env python3
"""The program as a user runs it: output, exit status, and what a damaged installation gets.

    vsk_test.py BUILD_DIR TREES_DIR            runs the tests
    vsk_test.py BUILD_DIR TREES_DIR --update   writes the expected outputs anew: read the difference
"""
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD, TREES = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
UPDATE = "--update" in sys.argv
HERE = Path(__file__).resolve().parent
VSK = BUILD / "bin" / "vsk"
NOW = re.compile(r"(Collected +|\"DateTimeOfCollection\": \")\d{14}\.\d{6}[+-]\d{3}")


def vsk(*arguments, tree="laptop", program=VSK, **more):
    """Runs the program on a captured machine; the zone has a summer time and needs no files."""
    environment = {name: value for name, value in os.environ.items() if name != "HWQ_LOGLEVEL"}
    environment.update(VSK_ROOT=str(TREES / tree), TZ="CET-1CEST,M3.5.0,M10.5.0/3")
    environment.update(more.pop("env", {}))
    return subprocess.run([program, *arguments], env=environment, stdin=subprocess.DEVNULL,
                          stdout=more.pop("stdout", subprocess.PIPE), stderr=subprocess.PIPE,
                          encoding="utf-8", timeout=300, **more)


class Collect(unittest.TestCase):
    maxDiff = None

    def check_output(self, name, *arguments, tree="laptop"):
        """Holds the output against a file, but for the time of the collection."""
        run = vsk("collect", *arguments, tree=tree)
        self.assertEqual((0, ""), (run.returncode, run.stderr))
        self.assertRegex(run.stdout, NOW)
        shown = NOW.sub(r"\1NOW", run.stdout)
        if UPDATE:
            (HERE / name).write_text(shown, encoding="utf-8")
        self.assertEqual((HERE / name).read_text(encoding="utf-8"), shown)

    def test_text(self):
        self.check_output("laptop.txt")

    def test_json(self):
        self.check_output("laptop.json", "--json")

    def test_machine_without_firmware_tables(self):
        self.check_output("board.json", "--json", tree="board")

    def test_two_packages_one_hybrid(self):
        self.check_output("server.txt", "--class", "ZNTSG_Processor", "--class",
                          "ZNTSG_CacheMemory", "--class", "ZNTSG_ProcessorCache", tree="server")

    def test_text_and_json_agree(self):
        text = vsk("collect").stdout
        for instances in json.loads(vsk("collect", "--json").stdout).values():
            for instance in instances:
                for value in instance.values():
                    if isinstance(value, str) and not NOW.search(f'Collected {value}'):
                        self.assertIn(value, text)

    def test_nothing_to_read(self):
        data = json.loads(vsk("collect", "--json", tree="absent").stdout)
        self.assertEqual(["ZNTSG_ComputerSystem", "ZNTSG_OperatingSystem", "ZNTSG_RunningOS",
                          "ZNTSG_HWQProduct"], list(data))
        known = {name: value for name, value in data["ZNTSG_ComputerSystem"][0].items() if value}
        self.assertEqual({"InstanceID", "DateTimeOfCollection"}, set(known))

    def test_classes_by_name(self):
        for names, shown in [
            (["ZNTSG_BaseBoard"], ["ZNTSG_BaseBoard"]),
            (["zntsg_hwqPRODUCT", "ZNTSG_BaseBoard"], ["ZNTSG_BaseBoard", "ZNTSG_HWQProduct"]),
            (["ZNTSG_BaseBoard", "ZNTSG_BaseBoard"], ["ZNTSG_BaseBoard"]),
            (["ZNTSG_Dependency"], ["ZNTSG_RunningOS"]),  # a base, and an association alone
        ]:
            options = [option for name in names for option in ("--class", name)]
            run = vsk("collect", "--json", *options)
            self.assertEqual((0, ""), (run.returncode, run.stderr), names)
            self.assertEqual(shown, list(json.loads(run.stdout)))

    def test_unknown_class_is_named(self):
        for name in ["ZNTSG_Nothing", "9 lives", "", "<root>"]:
            run = vsk("collect", "--class", "ZNTSG_BaseBoard", "--class", name)
            self.assertEqual((2, "", f'vsk: there is no class "{name}"\n'),
                             (run.returncode, run.stdout, run.stderr))

    def test_class_without_instances(self):
        run = vsk("collect", "--class", "ZNTSG_BaseBoard", tree="board")
        self.assertEqual((1, "", "vsk: nothing could be collected for ZNTSG_BaseBoard\n"),
                         (run.returncode, run.stdout, run.stderr))


class Questions(unittest.TestCase):
    """What the other commands answer."""

    def answer(self, *arguments, **more):
        run = vsk(*arguments, **more)
        self.assertEqual((0, ""), (run.returncode, run.stderr), arguments)
        return run.stdout.splitlines()

    def test_identity(self):
        lines = dict(re.split(r"  +", line, 1) for line in self.answer("identity"))
        self.assertEqual(("büro-7", "21AB7CD", "21AB", "7CD", "R90XK4T", "9.4"), tuple(
            lines[label] for label in (
                "System name", "Machine type and model", "Machine type", "Model number",
                "Serial number", "Operating system version")))
        self.assertEqual(".".join(lines[f"Data source {part} version"]
                                  for part in ("major", "minor", "build")),
                         lines["Data source version"])

    def test_identity_without_an_answer_says_why(self):
        lines = dict(re.split(r"  +", line, 1) for line in self.answer("identity", tree="absent"))
        self.assertEqual("(no answer: not known on this machine; vskStatusValueIsNULL)",
                         lines["System name"])
        self.assertIn("vskStatusNotFound", lines["Serial number"])
        self.assertIn("vskStatusNotFound", lines["Model number"])

    def test_identity_of_a_malformed_product(self):
        with tempfile.TemporaryDirectory() as root:
            dmi = Path(root) / "sys/class/dmi/id"
            dmi.mkdir(parents=True)
            (dmi / "product_name").write_text("Wayfarer -[21AB7CDX]-")
            lines = dict(re.split(r"  +", line, 1)
                         for line in self.answer("identity", env={"VSK_ROOT": root}))
        self.assertEqual(["(no answer: the source is empty)"] * 2 +
                         ["(no answer: machine type and model are empty)"],
                         [lines[label] for label in (
                             "Machine type and model", "Machine type", "Model number")])

    def test_plugins(self):
        blocks = "\n".join(self.answer("plugins")).split("\n\n")
        identity = next(block for block in blocks if block.startswith("identity "))
        self.assertRegex(identity, r"identity \d+\.\d+\.\d+\n  Type +0 \(collects\)\n"
                                   r"  Path +/.*/identity/identity\.pi\.so\n"
                                   r"  Initialised +yes\n  Classes +ZNTSG_ComputerSystem\n"
                                   r" +ZNTSG_SystemBIOSElement\n")

    def test_walks(self):
        system = 'ZNTSG_ComputerSystem.InstanceID="system:0"'
        running = 'ZNTSG_OperatingSystem.InstanceID="os:running"'
        join = f'ZNTSG_RunningOS.Antecedent="{running}",Dependent="{system}"'
        for arguments, listed in [
            (["associators", "zntsg_computersystem"], ["ZNTSG_OperatingSystem"]),
            (["references", "ZNTSG_ComputerSystem"], ["ZNTSG_RunningOS"]),
            (["associators", system], [running]),
            (["associators", 'zntsg_COMPUTERSYSTEM.instanceid="system:0"'], [running]),
            (["associators", system, "--role", "Dependent", "--result-role", "antecedent"],
             [running]),
            (["associators", system, "--role", "Antecedent"], []),
            (["associators", running, "--result-class", "ZNTSG_BaseBoard"], []),
            (["references", running, "--result-class", "ZNTSG_RunningOS"], [join]),
            (["references", join], []),  # a path with paths inside
        ]:
            self.assertEqual(listed, self.answer(*arguments), arguments)

    def test_caches_of_a_processor(self):
        for processor, caches in [("cpu:0", ["L1d:0", "L1i:0", "L2:0", "L3:0", "L1d:2", "L2:2", "L1d:3"]),
                                  ("cpu:3", ["L1d:4", "L2:4"])]:
            listed = self.answer("associators", f'ZNTSG_Processor.InstanceID="{processor}"',
                                 tree="server")
            self.assertEqual([f'ZNTSG_CacheMemory.InstanceID="cache:{cache}"' for cache in caches],
                             listed)

    def test_walks_from_nowhere(self):
        for arguments, status, reason in [
            (["associators", "ZNTSG_Nothing"], 2, 'there is no class "ZNTSG_Nothing"'),
            (["associators", 'ZNTSG_Nothing.Id="1"'], 2, 'there is no class "ZNTSG_Nothing"'),
            (["references", "ZNTSG_BaseBoard", "--result-class", "None"], 2,
             'there is no class "None"'),
            (["associators", "ZNTSG_ComputerSystem.InstanceID=system:0"], 2,
             "no path: InstanceID=system:0"),
            (["associators", 'ZNTSG_ComputerSystem.InstanceID="'], 2, 'no path: InstanceID="'),
            (["references", 'ZNTSG_ComputerSystem.InstanceID="system:1"'], 1,
             'no instance fits "ZNTSG_ComputerSystem.InstanceID="system:1""'),
            (["references", 'ZNTSG_ComputerSystem.AssetTag="x"'], 1,  # which is NULL
             'no instance fits "ZNTSG_ComputerSystem.AssetTag="x""'),
            (["references", "ZNTSG_CPUVulnerability."], 1,
             'more than one instance fits "ZNTSG_CPUVulnerability."'),
        ]:
            run = vsk(*arguments)
            self.assertEqual((status, "", f"vsk: {reason}\n"),
                             (run.returncode, run.stdout, run.stderr), arguments)


class CommandLine(unittest.TestCase):
    def test_wrong(self):
        for arguments in [[], ["gather"], ["collect", "more"], ["collect", "--class"],
                          ["collect", "--log-level", "5"], ["collect", "--log-level", "x"],
                          ["--json"], ["collect", "--yaml"], ["associators"], ["plugins", "--json"]]:
            run = vsk(*arguments)
            self.assertEqual((2, ""), (run.returncode, run.stdout), arguments)
            self.assertNotEqual("", run.stderr, arguments)

    def test_help_and_version(self):
        header = HERE.parents[1] / "include/vskcore/core/vskVersion.h"
        version = re.search(r'VSK_VERSION "(.*)"', header.read_text(encoding="utf-8"))[1]
        run = vsk("--version")
        self.assertEqual((0, f"vsk {version}\n", ""), (run.returncode, run.stdout, run.stderr))
        for arguments in [["--help"], ["collect", "--help"], ["collect", "-h"]]:
            run = vsk(*arguments)
            self.assertEqual((0, ""), (run.returncode, run.stderr))
            self.assertIn("Usage: vsk", run.stdout)
        for option in ["--class", "--json", "--log-level"]:
            self.assertIn(option, vsk("collect", "--help").stdout)


class Log(unittest.TestCase):
    def lines(self):
        folder = VSK.parent / ".." / "lib" / "vskcore"
        prefix = "VSK_Core: [Debug] "
        asked = [("cpu", "Processor"), ("cpu", "CacheMemory"), ("identity", "ComputerSystem"),
                 ("identity", "SystemBIOSElement"), ("identity", "BaseBoard"),
                 ("identity", "HWQProduct"), ("os", "OperatingSystem"), ("os", "CPUVulnerability"),
                 ("cpu", "ProcessorCache"), ("os", "RunningOS")]
        return "".join(
            [f"{prefix}{folder}/{name}/{name}.pi.so\n" for name in ("cpu", "identity", "os")] +
            [f"{prefix}TContainer: class ZNTSG_ComputerSystem already defined\n"] +
            [f"{prefix}Asking plugin {name} for ZNTSG_{cls}\n" for name, cls in asked])

    def test_lines_are_the_core_s(self):
        run = vsk("collect", env={"HWQ_LOGLEVEL": "4"})
        traces = re.findall(r"(?m)^VSK_cpu: \[Verbose\] .*\n", run.stderr)
        self.assertIn("VSK_cpu: [Verbose] vskAddClass(ZNTSG_Processor)\n", traces)
        self.assertEqual((0, self.lines()),
                         (run.returncode, re.sub(r"(?m)^VSK_cpu: .*\n", "", run.stderr)))

    def test_level_by_option(self):
        self.assertEqual(self.lines(), vsk("collect", "--log-level", "3").stderr)
        self.assertEqual("", vsk("collect", "--log-level", "0", env={"HWQ_LOGLEVEL": "4"}).stderr)


class Output(unittest.TestCase):
    def into_nothing(self, **more):
        """Runs with a standard output that nobody reads any more."""
        reader, writer = os.pipe()
        os.close(reader)
        try:
            return vsk("collect", stdout=writer, **more)
        finally:
            os.close(writer)

    def test_reader_that_has_gone(self):
        run = self.into_nothing()
        self.assertEqual((-signal.SIGPIPE, ""), (run.returncode, run.stderr))

    def test_reader_that_has_gone_with_the_signal_ignored(self):
        run = self.into_nothing(
            restore_signals=False,
            preexec_fn=lambda: signal.signal(signal.SIGPIPE, signal.SIG_IGN))
        self.assertEqual((0, ""), (run.returncode, run.stderr))

    def test_head(self):
        run = subprocess.run(["bash", "-c", '"$0" collect | head -n 1', VSK], encoding="utf-8",
                             capture_output=True, timeout=300, check=True)
        self.assertEqual(("System\n", ""), (run.stdout, run.stderr))

    def test_full_disk(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            run = vsk("collect", stdout=full)
        self.assertEqual(1, run.returncode)
        self.assertIn("vsk: can't write the report: ", run.stderr)


class Installation(unittest.TestCase):
    """A copy of the tree, so that it can be moved and damaged."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        (self.root / "bin").mkdir()
        shutil.copy(VSK, self.root / "bin")
        shutil.copytree(BUILD / "lib" / "vskcore", self.root / "lib" / "vskcore")
        self.plugins = self.root / "lib" / "vskcore"
        self.document = self.plugins / "data" / "core.properties.xml"

    def run_vsk(self, *arguments, **more):
        return vsk("collect", *arguments, program=self.root / "bin" / "vsk", **more)

    def test_moved(self):
        self.assertEqual(list(json.loads(vsk("collect", "--json").stdout)),
                         list(json.loads(self.run_vsk("--json").stdout)))

    def check_no_start(self, **more):
        run = self.run_vsk(**more)
        self.assertEqual((1, ""), (run.returncode, run.stdout))
        self.assertRegex(run.stderr, r"(?m)^vsk: the core did not start: .+$")
        return run.stderr

    def test_without_core_document(self):
        self.document.unlink()
        self.check_no_start()

    def test_empty_core_document(self):
        self.document.write_bytes(b"")
        self.check_no_start()
        self.check_no_start(env={"HWQ_LOGLEVEL": "-1"})  # when the log may not say why, vsk does

    def test_damaged_core_document(self):
        whole = self.document.read_bytes()
        for damaged in [whole[:whole.rindex(b"</PROPERTY>")], whole.replace(b"</CIM>", b"</CIN>"),
                        whole.replace(b'TYPE="boolean"', b'TYPE="bool"', 1), b"\0" * 4096,
                        b"\x1f\x8b\x08 not what it seems"]:
            self.document.write_bytes(damaged)
            errors = self.check_no_start()
            self.assertIn("VSK_Core: [Error] ", errors)

    def test_no_plugins(self):
        for name in ("cpu", "identity", "os"):
            shutil.rmtree(self.plugins / name)
        run = self.run_vsk()
        self.assertEqual((1, "", "vsk: nothing could be collected: there are no plug-ins\n"),
                         (run.returncode, run.stdout, run.stderr))

    def test_bad_plugin_costs_only_itself(self):
        (self.plugins / "broken").mkdir()
        (self.plugins / "broken" / "broken.pi.so").write_text("no library")
        (self.plugins / "identity" / "identity.properties.xml").write_text("<CIM>")
        for name, old, new in [
            ("os", "</DECLGROUP>", '<VALUE.OBJECT><CLASS NAME="Sample_More" SUPERCLASS="'
             'ZNTSG_ManagedElement"/></VALUE.OBJECT></DECLGROUP>'),
            ("cpu", 'NAME="CPUFamily"', 'NAME="Kin"'),
        ]:
            document = self.plugins / name / f"{name}.properties.xml"
            document.write_text(document.read_text().replace(old, new))
        run = self.run_vsk("--json")
        self.assertEqual(0, run.returncode)
        self.assertEqual(["ZNTSG_Processor", "ZNTSG_OperatingSystem", "ZNTSG_CPUVulnerability"],
                         list(json.loads(run.stdout)))
        self.assertIn(f"DLL {self.root}/bin/../lib/vskcore/broken/broken.pi.so "
                      "failed to initialize properly\n", run.stderr)
        self.assertIn("VSK_os: [Error] Couldn't collect Sample_More: vskStatusUnknownClass\n",
                      run.stderr)
        self.assertIn("VSK_cpu: [Error] CPUFamily of ZNTSG_Processor was not stored: "
                      "vskStatusNotFound\n", run.stderr)

    def test_plugin_that_does_not_initialise(self):
        name = "c_fails_initialize"
        shutil.copytree(BUILD / "tests" / "plugins" / name, self.plugins / name)
        run = vsk("plugins", program=self.root / "bin" / "vsk", env={"HWQ_LOGLEVEL": "0"})
        path = f"{self.root}/bin/../lib/vskcore/{name}/{name}.pi.so"
        self.assertEqual((0, f"vsk: plug-in {name} ({path}) did not initialise\n"),
                         (run.returncode, run.stderr))
        self.assertIn(f"{name} 3.14\n  Type         0 (collects)\n  Path         {path}\n"
                      "  Initialised  no\n\n", run.stdout)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0]])
