import assert from 'node:assert/strict'
import { mkdirSync, rmSync, symlinkSync, utimesSync, writeFileSync } from 'node:fs'
import net from 'node:net'
import { join } from 'node:path'
import { after, before, describe, it } from 'node:test'
import { Data, Server, temporaryFolder } from './support/server.mjs'

describe('HTTP', () => {
  let data
  let web
  let server
  before(async () => {
    data = new Data()
    web = temporaryFolder()
    mkdirSync(join(web, 'assets'))
    writeFileSync(join(web, 'index.html'), '<!doctype html><title>client</title>')
    writeFileSync(join(web, 'assets', 'app-1a2b.js'), 'export {}')
    writeFileSync(join(web, 'assets', 'app-1a2b.css'), 'a{}')
    writeFileSync(join(web, 'favicon.svg'), '<svg/>')
    symlinkSync('/etc/passwd', join(web, 'link.txt'))
    symlinkSync('/etc', join(web, 'folder'))
    server = await Server.start(data, { args: ['--web', web] })
  })
  after(async () => {
    await server.stop()
    data.remove()
    rmSync(web, { recursive: true })
  })

  it('says that it is alive', async () => {
    const reply = await server.get('/healthz')
    assert.deepEqual([reply.status, reply.body], [200, { status: 'ok' }])
  })

  it('serves the client with the right types and caching', async () => {
    const expected = {
      '/': ['text/html; charset=utf-8', 'no-cache'],
      '/index.html': ['text/html; charset=utf-8', 'no-cache'],
      '/favicon.svg': ['image/svg+xml', 'no-cache'],
      '/assets/app-1a2b.js': ['text/javascript; charset=utf-8', 'public, max-age=31536000, immutable'],
      '/assets/app-1a2b.css': ['text/css; charset=utf-8', 'public, max-age=31536000, immutable'],
    }
    for (const [path, [type, caching]] of Object.entries(expected)) {
      const reply = await server.get(path)
      assert.equal(reply.status, 200, path)
      assert.equal(reply.headers['content-type'], type)
      assert.equal(reply.headers['cache-control'], caching)
    }
    assert.equal((await server.get('/?a=b')).status, 200)
  })

  it('answers HEAD like GET, without the body', async () => {
    const reply = await server.request('HEAD', '/')
    assert.deepEqual([reply.status, reply.text, reply.headers['content-length']], [200, '', '36'])
  })

  it('serves nothing outside the client, however the path is written', async () => {
    const paths = ['/../../etc/passwd', '/..%2f..%2fetc%2fpasswd', '/%2e%2e/%2e%2e/etc/passwd', '//etc/passwd',
      '/assets/../../../etc/passwd', '/assets', '/link.txt', '/folder/passwd', '/..\\..\\etc\\passwd', '/%00', '/api/none']
    for (const path of paths) {
      const reply = await server.get(path)
      assert.equal(reply.status, 404, path)
      assert.ok(!reply.text.includes('root:'), path)
    }
  })

  it('gives every answer the security headers', async () => {
    for (const path of ['/', '/assets/app-1a2b.js', '/none', '/api/session', '/healthz']) {
      const { headers } = await server.get(path)
      const policy = headers['content-security-policy']
      assert.match(policy, /default-src 'none'/, path)
      assert.match(policy, /script-src 'self';/)
      assert.match(policy, /frame-ancestors 'none'/)
      assert.ok(!policy.includes('unsafe'))
      assert.equal(headers['x-content-type-options'], 'nosniff')
      assert.equal(headers['referrer-policy'], 'same-origin')
      assert.equal(headers['x-frame-options'], 'DENY')
    }
    assert.equal((await server.get('/api/session')).headers['cache-control'], 'no-store')
  })

  it('refuses other methods and says which it takes', async () => {
    for (const [method, path, allowed] of [['GET', '/api/login', 'POST'], ['POST', '/', 'GET, HEAD'],
      ['PUT', '/', 'GET, HEAD'], ['DELETE', '/api/session', 'GET, HEAD']]) {
      const reply = await server.request(method, path)
      assert.deepEqual([reply.status, reply.headers.allow], [405, allowed], `${method} ${path}`)
    }
  })

  it('refuses what is no HTTP, heads and bodies that are too large', async () => {
    assert.match(await server.exchange('nonsense\r\n\r\n'), /^HTTP\/1\.1 400 /)
    assert.match(await server.exchange(`GET / HTTP/1.1\r\nhost: a\r\nx: ${'y'.repeat(20000)}\r\n\r\n`), /^HTTP\/1\.1 431 /)
    const chunked = `POST /api/login HTTP/1.1\r\nhost: ${server.host}\r\norigin: ${server.origin}\r\n`
      + `transfer-encoding: chunked\r\n\r\n8000\r\n${'z'.repeat(0x8000)}\r\n0\r\n\r\n`
    assert.match(await server.exchange(chunked), /^HTTP\/1\.1 413 /)
    assert.equal((await server.request('GET', '/', { headers: { 'content-length': 3 }, body: 'abc' })).status, 413)
    assert.equal((await server.get('/healthz')).status, 200)
  })

  it('serves several requests over one connection', async () => {
    const one = `GET /healthz HTTP/1.1\r\nhost: ${server.host}\r\n`
    const answer = await server.exchange(`${one}\r\n${one}connection: close\r\n\r\n`)
    assert.equal(answer.split('HTTP/1.1 200 OK').length, 3)
  })

  it('takes a client that is built anew', async () => {
    writeFileSync(join(web, 'index.html'), '<!doctype html><title>newer</title>')
    utimesSync(join(web, 'index.html'), new Date(), new Date(Date.now() + 5000))
    writeFileSync(join(web, 'assets', 'app-3c4d.js'), 'export {}')
    assert.match((await server.get('/')).text, /newer/)
    assert.equal((await server.get('/assets/app-3c4d.js')).status, 200)
  })

  it('says what to do when the client has not been built', async () => {
    const empty = temporaryFolder()
    const other = await Server.start(data, { args: ['--web', empty] })
    const reply = await other.get('/')
    assert.equal(reply.status, 503)
    assert.match(reply.text, /has not been built/)
    assert.equal((await other.get('/healthz')).status, 200)
    await other.stop()
    rmSync(empty, { recursive: true })
  })

  it('limits the connections of one address', async () => {
    const other = await Server.start(data, { args: ['--max-connections', '3'] })
    const held = await Promise.all([1, 2, 3].map(() => new Promise((open) => {
      const socket = net.connect(other.port, '127.0.0.1', () => open(socket))
    })))
    await new Promise((next) => setTimeout(next, 200))
    await assert.rejects(other.get('/healthz'))
    held.forEach((socket) => socket.destroy())
    await new Promise((next) => setTimeout(next, 200))
    assert.equal((await other.get('/healthz')).status, 200)
    await other.stop()
  })

  it('refuses an upload that is too large', async () => {
    const other = await Server.start(data, { args: ['--max-upload', '1000'] })
    const cookie = await other.cookieOf('admin')
    const reply = await other.post('/api/upload?window=1&name=x', 'y'.repeat(1001), { cookie })
    assert.equal(reply.status, 413)
    await other.stop()
  })
})
