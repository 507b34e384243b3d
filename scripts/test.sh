#!/usr/bin/env bash
# Installs what is missing, builds the debug configuration (with
# AddressSanitizer and UndefinedBehaviorSanitizer) and runs every test. The
# suites over the practice database run twice: on SQLite, and on a PostgreSQL
# server (their cases prefixed "pg.").
#
# The server is a throwaway one that this script makes in a temporary folder
# (initdb from Debian's postgresql package), listening on 127.0.0.1 on a free
# port, run by the "postgres" system user when the script runs as root. Its
# test role logs in with a password, so that a wrong one can be tested. It is
# stopped and removed when the script ends, whether the tests pass or not.
# Its data is thrown away, so it runs without flushing to disk. To use a
# server of your own instead, set AVLOR_TEST_PG_URI (a role that may create
# databases and roles; its password from the URI, PGPASSWORD or PGPASSFILE).
#
# AVLOR_TEST_JOBS sets how many tests run at once (default 2).
set -euo pipefail
cd "$(dirname "$0")/.."
AVLOR_WITH_POSTGRES_TESTS=1 scripts/install-deps.sh
cmake --preset debug -DAVLOR_POSTGRES_TESTS=ON
cmake --build --preset debug

start_test_server() {
  local bin
  bin=$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)
  server_dir=$(mktemp -d /tmp/avlor-pg-XXXXXX)
  as_server=()
  if [[ $(id -u) -eq 0 ]]; then
    # The server refuses to run as root.
    if ! id -u postgres >/dev/null 2>&1; then
      useradd --system --no-create-home --shell /usr/sbin/nologin postgres
    fi
    chown postgres "$server_dir"
    as_server=(runuser -u postgres --)
  fi
  chmod 700 "$server_dir"
  local admin_password role_password
  admin_password=$(head -c 24 /dev/urandom | od -An -tx1 | tr -d ' \n')
  role_password=$(head -c 24 /dev/urandom | od -An -tx1 | tr -d ' \n')
  printf '%s\n' "$admin_password" >"$server_dir/admin-password"
  [[ ${#as_server[@]} -eq 0 ]] || chown postgres "$server_dir/admin-password"
  "${as_server[@]}" "$bin/initdb" -D "$server_dir/data" -U avlor_admin --pwfile="$server_dir/admin-password" \
    --auth-local=trust --auth-host=scram-sha-256 --encoding=UTF8 --locale=C >"$server_dir/initdb.log" 2>&1 || {
    cat "$server_dir/initdb.log" >&2
    return 1
  }
  # A free port: the first one the server manages to listen on.
  local port
  for port in $(seq 54329 54429); do
    if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
      continue # taken
    fi
    if "${as_server[@]}" "$bin/pg_ctl" -D "$server_dir/data" -l "$server_dir/server.log" -w -t 60 \
      -o "-k $server_dir -h 127.0.0.1 -p $port -c lc_messages=C -c fsync=off -c synchronous_commit=off -c full_page_writes=off" \
      start >/dev/null; then
      server_port=$port
      break
    fi
  done
  if [[ -z ${server_port:-} ]]; then
    echo "Cannot start the PostgreSQL test server:" >&2
    cat "$server_dir/server.log" >&2 || true
    return 1
  fi
  "${as_server[@]}" "$bin/psql" -q -h "$server_dir" -p "$server_port" -U avlor_admin -d postgres -v ON_ERROR_STOP=1 \
    -c "CREATE ROLE avlor_test LOGIN CREATEDB CREATEROLE PASSWORD '$role_password'" >/dev/null
  printf '127.0.0.1:%s:*:avlor_test:%s\n' "$server_port" "$role_password" >"$server_dir/pgpass"
  chmod 600 "$server_dir/pgpass"
  export PGPASSFILE="$server_dir/pgpass"
  export AVLOR_TEST_PG_URI="postgresql://avlor_test@127.0.0.1:$server_port/postgres"
  echo "PostgreSQL test server on 127.0.0.1:$server_port (in $server_dir)"
}

stop_test_server() {
  if [[ -n ${server_dir:-} ]]; then
    if [[ -n ${server_port:-} ]]; then
      "${as_server[@]}" "$(ls -d /usr/lib/postgresql/*/bin | sort -V | tail -n 1)/pg_ctl" -D "$server_dir/data" \
        -m immediate stop >/dev/null 2>&1 || true
    fi
    rm -rf "$server_dir"
  fi
}

if [[ -z ${AVLOR_TEST_PG_URI:-} ]]; then
  trap stop_test_server EXIT
  trap 'exit 130' INT TERM
  start_test_server
fi
ctest --preset debug --parallel "${AVLOR_TEST_JOBS:-2}"
