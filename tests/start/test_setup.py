"""What setup.sh says where it cannot install. Usage: test_setup.py ROOT"""
import unittest
from pathlib import Path

from checkout import NOTHING_INSTALLED, ROOT, Checkout

NO_NETWORK = """echo "W: Failed to fetch http://mirror/InRelease  Could not resolve 'mirror'" >&2
[ "${*: -1}" = update ] || { echo 'E: Unable to locate package g++' >&2; exit 100; }"""
LOCKED = """[ "${*: -1}" = update ] || { echo 'E: Could not get lock /var/lib/dpkg/lock-frontend.' >&2; exit 100; }"""


def is_debian_12():
    release = Path("/etc/os-release")
    text = release.read_text() if release.exists() else ""
    return "ID=debian\n" in text and 'VERSION_ID="12"' in text


@unittest.skipUnless(is_debian_12(), "setup.sh installs on Debian 12 alone")
class SetupTest(unittest.TestCase):
    def setUp(self):
        self.checkout = Checkout()
        self.addCleanup(self.checkout.close)
        self.checkout.put("dpkg-query", NOTHING_INSTALLED)

    def expect_one_sentence(self, pattern):
        """From run.sh, which ends there: nothing was configured."""
        result = self.checkout.run(DISPLAY=":4711")
        told = [line for line in result.stderr.splitlines() if not line.startswith(("run: ", "setup: installing "))]
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertEqual((len(told), result.stdout), (1, ""), result.stderr)
        self.assertRegex(told[0], pattern)
        self.assertEqual([call for call in self.checkout.calls() if call.startswith("cmake ")], [])

    def test_without_network(self):
        self.checkout.put("apt-get", NO_NETWORK)
        self.expect_one_sentence(r"^setup: no mirror of Debian answers; connect to the network or .*, then try again ")
        log, = (self.checkout.folder / "tmp").iterdir()
        self.assertIn("Could not resolve", log.read_text())

    def test_with_another_fault_of_apt(self):
        self.checkout.put("apt-get", LOCKED)
        self.expect_one_sentence(r"^setup: apt-get could not install the packages; mend what it names in .*, then try again$")

    def test_without_root_and_sudo(self):
        self.checkout.put("id", "echo 1000")
        self.expect_one_sentence(r"^setup: .* neither root nor sudo; as root run: apt-get install .* g\+\+ ")

    def test_where_sudo_refuses(self):
        self.checkout.put("id", "echo 1000")
        self.checkout.put("sudo", "exit 1")
        self.expect_one_sentence(r"^setup: .* sudo refuses; as root run: apt-get install .* g\+\+ ")

    def test_an_update_that_fails_is_no_fault_where_the_packages_are_at_hand(self):
        self.checkout.put("apt-get", """echo "W: Failed to fetch" >&2; [ "${*: -1}" != update ]""")
        result = self.checkout.run("--version", QT_QPA_PLATFORM="offscreen", DISPLAY=":4711")
        self.assertRegex(result.stdout, r"^kestrel ")
        self.assertIn("setup: installing ", result.stderr)
        self.assertEqual(list((self.checkout.folder / "tmp").iterdir()), [])


if __name__ == "__main__":
    unittest.main()
