# The package for Python, installed from its wheel into clean environments: alone, and beside the packages that some tests need.
groups="build python"

install_wheel() { # FOLDER [OPTION]
    /usr/bin/python3 -m venv --clear "$@"
    "$1/bin/pip" install --quiet --no-index --no-deps --disable-pip-version-check build/python/rasterplanwriter-*.whl
}

test_python() { # ENVIRONMENT FOLDER
    "$1/bin/python" -B -m unittest discover -s "$2" -p '*_test.py' >build/python-tests.log 2>&1 ||
        fail_with build/python-tests.log
    tests=$((tests + $(sed -n 's/^Ran \([0-9]*\) tests* in .*/\1/p' build/python-tests.log)))
}

make_wheel() {
    ./scripts/package-python >build/python-package.log 2>&1 || fail_with build/python-package.log
    install_wheel build/python/alone
}

check() {
    make_wheel
    install_wheel build/python/beside --system-site-packages
    tests=0
    test_python build/python/alone tests/python
    test_python build/python/beside tests/python/with_packages
    count python "$tests" 0
}

smoke() {
    make_wheel
    build/python/alone/bin/python -B tests/python/golden_test.py >build/python-smoke.log 2>&1 ||
        fail_with build/python-smoke.log
    install_wheel build/python/beside --system-site-packages
    build/python/beside/bin/python -B tests/python/with_packages/typing_test.py >build/python-smoke.log 2>&1 ||
        fail_with build/python-smoke.log
    echo "python: one program runs"
}
