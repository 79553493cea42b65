# SPDX-License-Identifier: MIT
"""What holds for all values, tried by hypothesis where it is installed (on Debian: python3-hypothesis)."""

from decimal import Decimal

import pytest
from oracle import EXACT, LARGEST, exact, rounded, seen

from qv8numeric import Fixed, Info, Rounding, Status

hypothesis = pytest.importorskip("hypothesis", reason="hypothesis is not installed")
from hypothesis import strategies as st  # noqa: E402

infos = st.builds(Info, st.integers(0, 30), st.sampled_from(Rounding))
coefficients = st.integers(-LARGEST, LARGEST)
values = st.builds(Fixed.from_coefficient, coefficients, infos)
small = st.builds(Fixed.from_coefficient, st.integers(-(2**63), 2**63), infos)
steady = hypothesis.settings(derandomize=True, deadline=None, database=None, max_examples=300)


@steady
@hypothesis.given(small, small, infos)
def test_product(a: Fixed, b: Fixed, into: Info) -> None:
    assert seen(a.mul(b, into)) == rounded(EXACT.multiply(a.to_decimal(), b.to_decimal()), into)


@steady
@hypothesis.given(values, values, infos)
def test_sums_commute(a: Fixed, b: Fixed, into: Info) -> None:
    assert seen(a.add(b, into)) == seen(b.add(a, into))
    assert seen(a.add(b, into)) == rounded(EXACT.add(a.to_decimal(), b.to_decimal()), into)


@steady
@hypothesis.given(values, values)
def test_order_agrees_with_decimal_and_hash_with_order(a: Fixed, b: Fixed) -> None:
    x, y = a.to_decimal(), b.to_decimal()
    assert (a < b, a == b, a > b) == (x < y, x == y, x > y)
    assert a != b or hash(a) == hash(b)


@steady
@hypothesis.given(values)
def test_text_leads_back(a: Fixed) -> None:
    assert Fixed(str(a), a.info).coefficient == a.coefficient
    assert Fixed(f"{a:,}", a.info, groups=True).coefficient == a.coefficient


@steady
@hypothesis.given(st.text(alphabet="0123456789+-.,eE x", max_size=60), infos, st.booleans())
def test_any_text_is_a_number_or_none(text: str, info: Info, groups: bool) -> None:
    plain = text.replace(",", "") if groups else text
    try:
        outcome = Fixed.rounded(text, info, groups=groups)
    except ValueError:
        return
    number = Decimal(plain)
    if abs(number.adjusted()) < 1000:
        assert seen(outcome) == rounded(number, info)
    elif number:
        assert outcome[1] != Status.OK


@steady
@hypothesis.given(coefficients, infos)
def test_exact_at_its_own_scale(coefficient: int, info: Info) -> None:
    assert Fixed(exact(coefficient, info), info).coefficient == coefficient
