#!/usr/bin/env bash
# Ed25519 signatures as Sparkle makes and checks them, with OpenSSL 3: a private key is the
# base64 of its 32-byte seed (what Sparkle's generate_keys exports with -x), a public key the
# base64 of its 32 raw bytes (SUPublicEDKey), a signature the base64 of its 64 raw bytes
# (sparkle:edSignature).
#
#   ed25519.sh sign FILE              the signature of FILE (key: SPARKLE_PRIVATE_KEY)
#   ed25519.sh public                 the public key of SPARKLE_PRIVATE_KEY
#   ed25519.sh verify FILE SIG PUB    exit 0 when SIG is PUB's signature of FILE
#   ed25519.sh generate               a new private key (for tests and a first setup)
#
# SPARKLE_PRIVATE_KEY holds the key itself, or SPARKLE_PRIVATE_KEY_FILE names a file with it.
# OPENSSL names the openssl to use (macOS's own LibreSSL cannot do this; Homebrew's openssl@3 can).
set -euo pipefail
openssl=${OPENSSL:-openssl}
die() { echo "ed25519: $*" >&2; exit 2; }

# DER prefixes of PKCS#8 private and SubjectPublicKeyInfo public Ed25519 keys.
private_prefix=302e020100300506032b657004220420
public_prefix=302a300506032b6570032100

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

hex_to_file() { # hex_to_file HEX FILE
  printf '%b' "$(printf '%s' "$1" | sed 's/../\\x&/g')" > "$2"
}
from_base64() { # from_base64 TEXT FILE
  printf '%s' "$1" | tr -d ' \n\r' | "$openssl" base64 -d -A > "$2" 2>/dev/null || return 1
}
to_hex() { od -An -v -tx1 "$1" | tr -d ' \n'; }

private_key_pem() {
  local key=${SPARKLE_PRIVATE_KEY:-}
  if [ -z "$key" ] && [ -n "${SPARKLE_PRIVATE_KEY_FILE:-}" ]; then
    [ -r "$SPARKLE_PRIVATE_KEY_FILE" ] || die "cannot read $SPARKLE_PRIVATE_KEY_FILE"
    key=$(cat "$SPARKLE_PRIVATE_KEY_FILE")
  fi
  [ -n "$key" ] || die "no private key (set SPARKLE_PRIVATE_KEY or SPARKLE_PRIVATE_KEY_FILE)"
  from_base64 "$key" "$work/seed" || die "the private key is not base64"
  local size; size=$(wc -c < "$work/seed" | tr -d ' ')
  case $size in
    32) ;;
    96) die "the private key is in Sparkle's old 96-byte form; export it again with a current generate_keys -x" ;;
    *) die "the private key decodes to $size bytes, not the 32 of a seed" ;;
  esac
  hex_to_file "$private_prefix$(to_hex "$work/seed")" "$work/private.der"
  "$openssl" pkey -inform DER -in "$work/private.der" -out "$work/private.pem" 2>/dev/null ||
    die "$openssl cannot read Ed25519 keys (OpenSSL 3 is needed)"
}

public_key_of_private() {
  "$openssl" pkey -in "$work/private.pem" -pubout -outform DER -out "$work/public.der"
  tail -c 32 "$work/public.der" | "$openssl" base64 -A
  echo
}

case ${1:-} in
  sign)
    [ $# -eq 2 ] && [ -f "$2" ] || die "usage: ed25519.sh sign FILE"
    private_key_pem
    "$openssl" pkeyutl -sign -rawin -inkey "$work/private.pem" -in "$2" -out "$work/sig" ||
      die "signing failed"
    "$openssl" base64 -A < "$work/sig"
    echo
    ;;
  public)
    private_key_pem
    public_key_of_private
    ;;
  verify)
    [ $# -eq 4 ] && [ -f "$2" ] || die "usage: ed25519.sh verify FILE SIGNATURE PUBLICKEY"
    from_base64 "$4" "$work/public.raw" || die "the public key is not base64"
    [ "$(wc -c < "$work/public.raw" | tr -d ' ')" = 32 ] || die "the public key is not 32 bytes"
    from_base64 "$3" "$work/sig" || die "the signature is not base64"
    [ "$(wc -c < "$work/sig" | tr -d ' ')" = 64 ] || { echo "ed25519: the signature is not 64 bytes" >&2; exit 1; }
    hex_to_file "$public_prefix$(to_hex "$work/public.raw")" "$work/public.der"
    "$openssl" pkey -pubin -inform DER -in "$work/public.der" -out "$work/public.pem" 2>/dev/null ||
      die "$openssl cannot read Ed25519 keys (OpenSSL 3 is needed)"
    "$openssl" pkeyutl -verify -rawin -pubin -inkey "$work/public.pem" -in "$2" \
      -sigfile "$work/sig" > /dev/null 2>&1
    ;;
  generate)
    "$openssl" genpkey -algorithm ed25519 -outform DER -out "$work/new.der" 2>/dev/null ||
      die "$openssl cannot make Ed25519 keys (OpenSSL 3 is needed)"
    tail -c 32 "$work/new.der" | "$openssl" base64 -A
    echo
    ;;
  *)
    die "usage: ed25519.sh sign FILE | public | verify FILE SIGNATURE PUBLICKEY | generate"
    ;;
esac
