// The engines on which a sample company can be made. `start(folder)` gives the data URL, a way to run a statement
// past the program, and an end. Besides: `system`, what stands before the name of a system table; `freshness`, the
// milliseconds after which an answer shows what was written; `restricted(run)`, the options of a server that calls functions
// which paste texts, where `run` runs a command of the program; `slowCondition`, a condition on domains that takes about
// half a second. Of one that is a server: `cut()` ends the connections that call such functions.
import { execFileSync, spawn } from 'node:child_process'
import { existsSync, mkdirSync, mkdtempSync, openSync, rmSync } from 'node:fs'
import { userInfo } from 'node:os'
import { join } from 'node:path'

export const sqlite = {
  name: 'SQLite',
  isServer: false,
  start: (folder) => ({
    url: `sqlite:${folder}`,
    sql: (statement) => execFileSync('sqlite3', [join(folder, 'zanrole.db'), statement], { encoding: 'utf8' }).trim(),
    system: '',
    freshness: 0,
    restricted: () => [],
    slowCondition: '1 < (select count(*) from STPermission a, STPermission b, STDomains c, STDomains d, STUsers e)',
    stop: () => {},
  }),
}

/** A server of its own on a local socket, which does not touch one that runs already. */
export const mariaDb = {
  name: 'MariaDB',
  isServer: true,
  start(folder) {
    // A socket's path holds 107 bytes, and in memory the tables are made forty times as fast.
    const place = mkdtempSync(existsSync('/dev/shm') ? '/dev/shm/zan-' : '/tmp/zan-')
    const socket = join(place, 's')
    // A server removes at its start the temporary tables of any other that works in the same folder.
    const temporary = join(place, 'tmp')
    mkdirSync(temporary)
    const own = ['--no-defaults', `--user=${userInfo().username}`, `--datadir=${join(place, 'data')}`, `--tmpdir=${temporary}`, '--lower-case-table-names=1']
    execFileSync('mariadb-install-db', [...own, '--auth-root-authentication-method=normal', '--skip-test-db'], { stdio: 'ignore' })
    const log = openSync(join(place, 'log'), 'a')
    const server = spawn('/usr/sbin/mariadbd', [...own, `--socket=${socket}`, `--pid-file=${join(place, 'pid')}`, '--skip-networking', '--innodb-buffer-pool-size=64M'], { stdio: ['ignore', log, log] })
    const words = ['--no-defaults', '--user=root', `--socket=${socket}`]
    execFileSync('mariadb-admin', [...words, '--wait=60', '--connect-timeout=1', 'ping'], { stdio: 'ignore' })
    return {
      url: `mysql://root@localhost/zan_data?system=zan_system&socket=${socket}&folder=${folder}`,
      sql: (statement) => execFileSync('mariadb', [...words, '--batch', '--raw', '--default-character-set=utf8mb4', '--skip-column-names', 'zan_data', '--execute', statement], { encoding: 'utf8' }).trim(),
      restricted(run) {
        const account = 'zan_ask@localhost'
        this.sql(`create user ${account}; ${run(['restricted-account', '--data', this.url, '--account', account])}`)
        return ['--restricted-data', this.url.replace('//root@', '//zan_ask@')]
      },
      system: 'zan_system.',
      freshness: 2000,
      cut() {
        this.sql("kill user 'zan_ask'@'localhost'")
      },
      slowCondition: 'sleep(0.2) = 0',
      stop() {
        server.kill('SIGKILL')
        rmSync(place, { recursive: true, force: true })
      },
    }
  },
}

export const engines = [sqlite, mariaDb]
