// The engines on which a sample company can be made. `start(folder)` gives the data URL, a way to run a statement
// past the program, and an end.
import { execFileSync, spawn } from 'node:child_process'
import { existsSync, mkdtempSync, openSync, rmSync } from 'node:fs'
import { userInfo } from 'node:os'
import { join } from 'node:path'

export const sqlite = {
  name: 'SQLite',
  start: (folder) => ({
    url: `sqlite:${folder}`,
    sql: (statement) => execFileSync('sqlite3', [join(folder, 'zanrole.db'), statement], { encoding: 'utf8' }).trim(),
    stop: () => {},
  }),
}

/** A server of its own on a local socket, which does not touch one that runs already. */
export const mariaDb = {
  name: 'MariaDB',
  start(folder) {
    // A socket's path holds 107 bytes, and in memory the tables are made forty times as fast.
    const place = mkdtempSync(existsSync('/dev/shm') ? '/dev/shm/zan-' : '/tmp/zan-')
    const socket = join(place, 's')
    const own = ['--no-defaults', `--user=${userInfo().username}`, `--datadir=${join(place, 'data')}`, '--lower-case-table-names=1']
    execFileSync('mariadb-install-db', [...own, '--auth-root-authentication-method=normal', '--skip-test-db'], { stdio: 'ignore' })
    const log = openSync(join(place, 'log'), 'a')
    const server = spawn('/usr/sbin/mariadbd', [...own, `--socket=${socket}`, `--pid-file=${join(place, 'pid')}`, '--skip-networking', '--innodb-buffer-pool-size=64M'], { stdio: ['ignore', log, log] })
    const words = ['--no-defaults', '--user=root', `--socket=${socket}`]
    execFileSync('mariadb-admin', [...words, '--wait=60', '--connect-timeout=1', 'ping'], { stdio: 'ignore' })
    return {
      url: `mysql://root@localhost/zan_data?system=zan_system&socket=${socket}&folder=${folder}`,
      sql: (statement) => execFileSync('mariadb', [...words, '--batch', '--raw', '--default-character-set=utf8mb4', '--skip-column-names', 'zan_data', '--execute', statement], { encoding: 'utf8' }).trim(),
      stop() {
        server.kill('SIGKILL')
        rmSync(place, { recursive: true, force: true })
      },
    }
  },
}

export const engines = [sqlite, mariaDb]
